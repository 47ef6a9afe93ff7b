// orva pattern: writes the test chart.
#include "channels.hpp"
#include "commands.hpp"
#include "memory.hpp"
#include "pattern.hpp"
#include "progress.hpp"

#include <algorithm>
#include <utility>

namespace orva::tool {

void runPattern(const PatternArguments& arguments) {
    if (arguments.size.width > usableMemory() / 4 / chartColumnBytes) {
        failTooLarge(arguments.format, arguments.size);
    }
    Image image = createImage(arguments.format, arguments.size);
    Image chart = createImage(plainFormat(arguments.format), arguments.size);
    ClipProperties properties;
    properties.interlacing = "p";
    properties.aspect = "1:1";
    properties.range = arguments.range;
    const auto writer =
        createFrames(arguments.output, {arguments.format, arguments.size, properties,
                                        arguments.out.rate, arguments.out.kind});
    const std::uint64_t frames = std::min<std::uint64_t>(arguments.frames, writer->capacity());
    Progress progress(frames);
    for (std::uint32_t frame = 0; frame < frames; ++frame) {
        drawChart(chart.view(), frame, arguments.matrix, arguments.range);
        convertImage(std::as_const(chart).view(), image.view());
        writer->encodeAndWrite(std::as_const(image).view());
        progress.show(frame + 1);
    }
    writer->commit();
}

}  // namespace orva::tool
