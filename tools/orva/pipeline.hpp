// Frames on their way from a reader through a conversion to a writer, several at once.
#pragma once

#include "frames.hpp"
#include "progress.hpp"
#include "waiting_read.hpp"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace orva::tool {

// Every thread takes what there is to do: it writes the frame whose turn it is, else it reads the
// next one, converts and encodes it. One at a time reads and one writes, both in the order of the
// frames, so that an error is that of the first frame that has one, and all before it are written.
// Threads are started, and memory is taken, while there are frames for them.
class Pipeline {
public:
    using Clock = std::chrono::steady_clock;

    // Takes the memory of one frame. The reader must last as long.
    Pipeline(FrameReader& reader, Format from, Format to, const Options& options, unsigned threads);

    // Writes all frames, or those that the writer keeps. Called once.
    void run(FrameWriter& writer);

    std::uint64_t frames() const { return written; }

    // The time of all threads together.
    Clock::duration converting() const { return timeConverting; }

private:
    struct Slot {
        Image source;
        Image destination;
        std::vector<std::byte> encoded;
        bool done = false;
        std::exception_ptr failure;
    };
    using Lock = std::unique_lock<std::mutex>;

    std::unique_ptr<Slot> createSlot() const;
    bool makeSpare();
    bool over() const { return failure || (ended && inOrder.empty()); }
    void work();
    void startHelper();
    void readNext(Lock& lock);
    Clock::duration convertAndEncode(Slot& slot);  // tells the time of converting
    void writeFirst(Lock& lock);
    void stop(Lock& lock, std::exception_ptr reason);

    FrameReader& reader;
    const Format from;
    const Format to;
    const Options options;
    FrameWriter* writer = nullptr;
    std::optional<Progress> progress;  // this and the next are of the thread that writes
    std::uint64_t written = 0;

    std::mutex mutex;  // of all below
    std::condition_variable changed;
    unsigned mostThreads;
    std::uint64_t mostSlots;
    std::uint64_t slots = 0;
    std::uint64_t toRead = UINT64_MAX;
    std::vector<std::unique_ptr<Slot>> spare;
    std::deque<std::unique_ptr<Slot>> inOrder;  // read and not yet written
    std::optional<WaitingRead> reading;         // while a thread reads
    bool writing = false;
    bool ended = false;  // no frame is to be read any more
    std::exception_ptr failure;
    Clock::duration timeConverting{};
    std::vector<std::jthread> helpers;  // last: they end before what they use
};

}  // namespace orva::tool
