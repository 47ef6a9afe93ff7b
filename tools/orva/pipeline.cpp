// Frames on their way from a reader through a conversion to a writer, several at once.
#include "pipeline.hpp"

#include "memory.hpp"

#include <algorithm>
#include <utility>

namespace orva::tool {

Pipeline::Pipeline(FrameReader& reader, Format from, Format to, const Options& options,
                   unsigned threads)
    : reader(reader), from(from), to(to), options(options), mostThreads(threads), mostSlots(1) {
    spare.push_back(createSlot());
    slots = 1;
}

std::unique_ptr<Pipeline::Slot> Pipeline::createSlot() const {
    auto slot = std::make_unique<Slot>();
    slot->source = createImage(from, reader.size());
    slot->destination = createImage(to, reader.size());
    return slot;
}

void Pipeline::run(FrameWriter& wanted) {
    writer = &wanted;
    toRead = std::min(reader.count().value_or(UINT64_MAX), wanted.capacity());
    if (mostThreads > 1) {
        // A frame can wait to be written while each thread has one.
        const auto [width, height] = reader.size();
        const std::uint64_t bytes = frameBytes(from, width, height) +
                                    frameBytes(to, width, height) + writer->encodingBytes();
        mostSlots = std::clamp<std::uint64_t>(usableMemory() / 2 / bytes, 1, mostThreads + 1);
    }
    progress.emplace(toRead == UINT64_MAX ? std::nullopt : std::optional(toRead));
    work();
    helpers.clear();
    progress.reset();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

// Nothing leaves it: run() must not end, nor any helper end the program, while others are at work.
void Pipeline::work() {
    Lock lock(mutex);
    try {
        while (!over()) {
            if (!writing && !inOrder.empty() && inOrder.front()->done) {
                writeFirst(lock);
            } else if (!reading && !ended && makeSpare()) {
                readNext(lock);
            } else {
                changed.wait(lock);
            }
        }
    } catch (...) {
        stop(lock, std::current_exception());
    }
}

// Whether there is a slot to spare. If memory ends, those that there are do.
bool Pipeline::makeSpare() {
    if (spare.empty() && slots < mostSlots) {
        try {
            spare.push_back(createSlot());
            ++slots;
        } catch (const std::exception&) {
            mostSlots = slots;
        }
    }
    return !spare.empty();
}

// One more thread while there may be frames for it; if the system has no more, or no memory, these
// do.
void Pipeline::startHelper() {
    if (!ended && !over() && helpers.size() + 1 < mostThreads) {
        try {
            helpers.emplace_back([this] { work(); });
        } catch (const std::exception&) {
            mostThreads = static_cast<unsigned>(helpers.size()) + 1;
        }
    }
}

void Pipeline::readNext(Lock& lock) {
    auto taken = std::move(spare.back());
    spare.pop_back();
    Slot& slot = *taken;
    slot.done = false;
    reading.emplace();
    lock.unlock();
    bool more = false;
    try {
        more = reader.next(slot.source.view());
    } catch (...) {
        slot.failure = std::current_exception();
    }
    lock.lock();
    reading.reset();
    changed.notify_all();
    const bool last = !more || --toRead == 0;
    ended = ended || last;  // a frame before it may have failed
    if (!more && !slot.failure) {
        return;
    }
    inOrder.push_back(std::move(taken));
    startHelper();
    if (!slot.failure) {
        lock.unlock();
        const auto time = convertAndEncode(slot);
        lock.lock();
        timeConverting += time;
    }
    slot.done = true;
    ended = ended || slot.failure;
    changed.notify_all();
}

Pipeline::Clock::duration Pipeline::convertAndEncode(Slot& slot) {
    const auto begin = Clock::now();
    auto end = begin;
    try {
        convertImage(std::as_const(slot.source).view(), slot.destination.view(), options);
        end = Clock::now();
        writer->encode(std::as_const(slot.destination).view(), slot.encoded);
    } catch (...) {
        slot.failure = std::current_exception();
    }
    return end - begin;
}

void Pipeline::writeFirst(Lock& lock) {
    Slot& slot = *inOrder.front();
    writing = true;
    lock.unlock();
    try {
        if (slot.failure) {
            std::rethrow_exception(slot.failure);
        }
        writer->write(std::as_const(slot.destination).view(), slot.encoded);
        progress->show(++written);
    } catch (...) {
        slot.failure = std::current_exception();
    }
    lock.lock();
    writing = false;
    if (slot.failure) {
        stop(lock, slot.failure);
    } else {
        spare.push_back(std::move(inOrder.front()));
        inOrder.pop_front();
        changed.notify_all();
    }
}

// Another thread may wait for a frame that never comes, or be about to.
void Pipeline::stop(Lock& lock, std::exception_ptr reason) {
    failure = reason;
    changed.notify_all();
    while (reading) {
        reading->interrupt();
        changed.wait_for(lock, std::chrono::milliseconds(10));
    }
}

}  // namespace orva::tool
