// orva convert: a clip from one format to another, several frames at once.
#include "commands.hpp"
#include "format_names.hpp"
#include "progress.hpp"
#include "raw_frames.hpp"
#include "refusals.hpp"

#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace orva::tool {
namespace {

using Clock = std::chrono::steady_clock;

// A frame on its way: read into one image, converted into the other.
struct Slot {
    Image source;
    Image destination;
    Result result;
};

void convertAll(std::span<Slot> slots, const Options& options) {
    const auto convertOne = [&options](Slot& slot) {
        slot.result = convert(std::as_const(slot.source).view(), slot.destination.view(), options);
    };
    std::vector<std::jthread> workers;
    for (Slot& slot : slots.subspan(1)) {
        workers.emplace_back(convertOne, std::ref(slot));
    }
    convertOne(slots.front());
}

void printStats(std::uint64_t frames, Clock::duration converting, Clock::duration all,
                std::uint64_t bytesPerFrame) {
    const auto seconds = [](Clock::duration time) {
        return std::chrono::duration<double>(time).count();
    };
    const double count = static_cast<double>(frames);
    std::fprintf(stderr,
                 "%llu %s: %.1f frames/s converted (%.2f GB/s read and written), "
                 "%.1f frames/s with files\n",
                 static_cast<unsigned long long>(frames), frames == 1 ? "frame" : "frames",
                 count / seconds(converting),
                 count * static_cast<double>(bytesPerFrame) / seconds(converting) / 1e9,
                 count / seconds(all));
}

}  // namespace

void runConvert(const ConvertArguments& arguments) {
    const auto& [in, to, out, chosen, srcRange, dstRange, threads, stats, input, output] =
        arguments;
    InputSettings settings = in;
    settings.greyIsColour = to != Format::A8P;
    const auto reader = openFrames(input, settings);
    const Format from = reader->format();
    if (!canConvert(from, to)) {
        throw Failure("there is no conversion from " + nameOf(from) + " to " + nameOf(to) +
                      "; 'orva formats' tells which there are");
    }
    const FrameSize size = reader->size();
    ClipProperties properties = reader->properties();
    // A user who names IN's range says that its file is wrong about it.
    const Range usual = srcRange ? Range::studio : properties.range.value_or(Range::studio);
    Options options = chosen;
    options.srcRange = srcRange.value_or(usual);
    options.dstRange = dstRange.value_or(usual);
    properties.range = options.dstRange;

    std::vector<Slot> slots;
    for (unsigned i = 0; i < threads; ++i) {
        slots.push_back({createImage(from, size), createImage(to, size), {}});
    }
    const auto writer = createFrames(output, {to, size, properties, out.rate, out.kind});

    Progress progress(reader->count());
    std::uint64_t frames = 0;
    Clock::duration converting{};
    const auto start = Clock::now();
    for (bool more = true; more && !writer->full();) {
        std::size_t filled = 0;
        while (filled < slots.size() && (more = reader->next(slots[filled].source.view()))) {
            ++filled;
        }
        if (filled == 0) {
            break;
        }
        const std::span batch = std::span(slots).first(filled);
        const auto begin = Clock::now();
        convertAll(batch, options);
        converting += Clock::now() - begin;
        for (const Slot& slot : batch) {
            if (!slot.result) {
                throw refusal(slot.result);
            }
            if (!writer->full()) {
                writer->write(slot.destination.view());
                progress.show(++frames);
            }
        }
    }
    writer->commit();
    progress.finish();
    if (stats) {
        printStats(frames, converting, Clock::now() - start,
                   rawFrameBytes(from, size) + rawFrameBytes(to, size));
    }
}

}  // namespace orva::tool
