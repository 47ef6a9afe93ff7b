// A capture loop: a card fills the frames of a ring, two threads convert each of them for a screen.
// Once it runs, no memory is allocated and no thread is started.
//
//     capture-ring [FRAMES]
#include <orva/convert.hpp>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <stop_token>
#include <thread>

namespace {

constexpr std::uint32_t width = 1920, height = 1080;
constexpr std::uint32_t slotCount = 4;

// Not the standard library's, nor its barrier: as GCC 12 builds these for Windows, a thread now and
// then misses that it is woken and waits for ever.
class Semaphore {
public:
    explicit Semaphore(std::uint32_t count) : count(count) {}

    void acquire() {
        std::unique_lock lock(mutex);
        released.wait(lock, [this] { return count > 0; });
        --count;
    }
    void release() {
        {
            const std::lock_guard lock(mutex);
            ++count;
        }
        released.notify_one();
    }

private:
    std::mutex mutex;
    std::condition_variable released;
    std::uint32_t count;
};

// Converts on the calling thread and on another that waits for work, each half of the rows.
class Converter {
public:
    ~Converter() {
        stopping = true;
        begin.release();
    }

    orva::Result convert(const orva::ConstImageView& source, const orva::ImageView& destination) {
        from = source;
        to = destination;
        begin.release();
        // What is wrong with the images, both halves say.
        const orva::Result result = orva::convert(from, to, {}, {.first = 0, .count = half()});
        end.acquire();
        return result;
    }

private:
    std::uint32_t half() const { return to.height / 2; }

    void convertSecondHalves() {
        for (begin.acquire(); !stopping; begin.acquire()) {
            static_cast<void>(
                orva::convert(from, to, {}, {.first = half(), .count = to.height - half()}));
            end.release();
        }
    }

    orva::ConstImageView from;
    orva::ImageView to;
    bool stopping = false;
    Semaphore begin{0}, end{0};
    std::jthread thread{[this] { convertSecondHalves(); }};  // last: it ends before what it uses
};

// What the card's memory would hold: colour bars that move by two pixels from frame to frame.
void capture(orva::Image& frame, std::uint32_t number) {
    // Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709.
    constexpr std::uint8_t bars[8][4] = {
        {128, 235, 128, 235}, {16, 219, 138, 219}, {154, 188, 16, 188}, {42, 173, 26, 173},
        {214, 78, 230, 78},   {102, 63, 240, 63},  {240, 32, 118, 32},  {128, 16, 128, 16}};
    const std::span<std::byte> top = frame.row(0);
    for (std::uint32_t x = 0; x < width; x += 2) {
        std::memcpy(&top[x * 2], bars[(x + number * 2) % width * 8 / width], 4);
    }
    for (std::uint32_t y = 1; y < height; ++y) {
        std::memcpy(frame.row(y).data(), top.data(), top.size());
    }
}

// Stands for the screen: FNV-1a of the picture's bytes, eight at a time.
std::uint64_t show(const orva::Image& screen, std::uint64_t checksum) {
    for (std::uint32_t y = 0; y < height; ++y) {
        const std::span<const std::byte> row = screen.row(y);
        for (std::size_t i = 0; i < row.size(); i += 8) {
            std::uint64_t bytes;
            std::memcpy(&bytes, &row[i], 8);
            checksum = (checksum ^ bytes) * 0x100000001b3;
        }
    }
    return checksum;
}

}  // namespace

int main(int argc, char** argv) {
    const long frames = argc > 1 ? std::atol(argv[1]) : 300;
    std::vector<orva::Image> ring;
    std::optional<orva::Image> screen = orva::Image::create(orva::Format::BGR32I, width, height);
    for (std::uint32_t i = 0; i < slotCount; ++i) {
        if (auto image = orva::Image::create(orva::Format::UYVY16I, width, height)) {
            ring.push_back(std::move(*image));
        }
    }
    if (frames < 1 || !screen || ring.size() < slotCount) {
        std::fputs("usage: capture-ring [FRAMES]; needs 25 MB\n", stderr);
        return 2;
    }

    Converter converter;
    Semaphore empty{slotCount}, filled{0};
    // Waits while the ring is full, where a card would drop the frame.
    std::jthread card([&](std::stop_token stop) {
        for (std::uint32_t n = 0;; ++n) {
            empty.acquire();
            if (stop.stop_requested()) {
                return;
            }
            capture(ring[n % slotCount], n);
            filled.release();
        }
    });

    orva::Result result;
    std::uint64_t checksum = 0xcbf29ce484222325;
    std::chrono::duration<double> converting{};
    const auto start = std::chrono::steady_clock::now();
    for (long n = 0; n < frames && result; ++n) {
        filled.acquire();
        const auto before = std::chrono::steady_clock::now();
        result = converter.convert(ring[n % slotCount].view(), screen->view());
        converting += std::chrono::steady_clock::now() - before;
        empty.release();
        checksum = show(*screen, checksum);
    }
    const std::chrono::duration<double> all = std::chrono::steady_clock::now() - start;
    card.request_stop();
    empty.release();  // it may be waiting for a frame

    if (!result) {
        std::fprintf(stderr, "%s\n", result.describe().c_str());
        return 1;
    }
    std::printf("%ld frames, %.0f per second, %.2f ms of each for the conversion\n", frames,
                frames / all.count(), converting.count() * 1000 / frames);
    std::printf("checksum %016llx\n", static_cast<unsigned long long>(checksum));
}
