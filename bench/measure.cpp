// The timing loop.
#include "measure.hpp"

#include <algorithm>
#include <ctime>
#include <random>

namespace bench {

const char* label(Form form) {
    switch (form) {
    case Form::fast:
        return "fast";
    case Form::offset:
        return "general";
    case Form::unevenly:
        return "general 1922";
    case Form::odd:
        return "odd addresses";
    case Form::crop:
        return "crop";
    }
    return "";
}

// Processor time of this thread in nanoseconds: other programs' turns do not count.
static double now() {
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e9 + double(time.tv_nsec);
}

// Before timed calls a competitor moves as much as the cache holds, but not more than this:
// servers' caches are large and shared by many cores, and filling them would take an hour in all.
constexpr size_t longestLead = size_t(32) << 20;

void measure(std::span<Competitor> competitors, Ring& ring, const Method& method) {
    size_t slot = 0;
    for (const Competitor& competitor : competitors)
        slot = std::max(slot, competitor.frame.bytes());

    std::vector<Competitor*> order;
    for (Competitor& competitor : competitors)
        order.push_back(&competitor);
    std::minstd_rand random;

    for (int round = 0; round < method.rounds; ++round) {
        std::ranges::shuffle(order, random);
        for (Competitor* const competitor : order) {
            Competitor& c = *competitor;
            const auto call = [&] { c.convert(ring.next(slot, method.reuse)); };
            c.prepare();
            // Until the cache holds nothing but its own lines: it writes back those that others
            // left modified, and others write back its.
            const size_t moved = c.frame.moved;
            const size_t filled = std::min(cacheBytes(), longestLead);
            const size_t lead = method.reuse ? 1 : (filled + moved - 1) / moved;
            for (size_t i = 0; i < lead; ++i)
                call();
            // Long enough for the clock.
            const size_t calls = std::max<size_t>(1, (size_t(4) << 20) / moved);
            const double begin = now();
            for (size_t i = 0; i < calls; ++i)
                call();
            c.samples.push_back((now() - begin) / double(calls) / c.size.width / c.size.height);
        }
    }
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

double ratio(const Competitor& ours, const Competitor& theirs) {
    std::vector<double> ratios(ours.samples);
    for (size_t i = 0; i < ratios.size(); ++i)
        ratios[i] /= theirs.samples[i];
    return median(ratios);
}

}  // namespace bench
