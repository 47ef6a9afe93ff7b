// orva convert: a clip from one format to another.
#include "commands.hpp"
#include "failure.hpp"
#include "format_names.hpp"
#include "pipeline.hpp"
#include "raw_frames.hpp"

#include <chrono>
#include <cstdio>

namespace orva::tool {
namespace {

using Clock = std::chrono::steady_clock;

void printStats(const Pipeline& pipeline, unsigned threads, Clock::duration all,
                std::uint64_t bytesPerFrame) {
    const auto seconds = [](Clock::duration time) {
        return std::chrono::duration<double>(time).count();
    };
    const double frames = static_cast<double>(pipeline.frames());
    const double perThread = frames / seconds(pipeline.converting());
    std::fprintf(stderr,
                 "%llu %s: %.1f frames/s converted by a thread (%.2f GB/s read and written), "
                 "%.1f frames/s with files by %u\n",
                 static_cast<unsigned long long>(pipeline.frames()),
                 pipeline.frames() == 1 ? "frame" : "frames", perThread,
                 perThread * static_cast<double>(bytesPerFrame) / 1e9, frames / seconds(all),
                 threads);
}

}  // namespace

void runConvert(const ConvertArguments& arguments) {
    const auto& [in, to, out, chosen, srcRange, dstRange, threads, stats, input, output] =
        arguments;
    InputSettings settings = in;
    settings.greyIsColour = to != Format::A8P;
    settings.paddingAlpha = chosen.alpha;
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

    Pipeline pipeline(*reader, from, to, options, threads);
    const auto writer = createFrames(output, {to, size, properties, out.rate, out.kind});
    const auto start = Clock::now();
    pipeline.run(*writer);
    writer->commit();
    if (stats) {
        printStats(pipeline, threads, Clock::now() - start,
                   rawFrameBytes(from, size) + rawFrameBytes(to, size));
    }
}

}  // namespace orva::tool
