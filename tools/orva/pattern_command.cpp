// orva pattern: writes the test chart.
#include "channels.hpp"
#include "commands.hpp"
#include "pattern.hpp"
#include "progress.hpp"

#include <utility>

namespace orva::tool {

void runPattern(const PatternArguments& arguments) {
    Image image = createImage(arguments.format, arguments.size);
    Image chart = createImage(plainFormat(arguments.format), arguments.size);
    ClipProperties properties;
    properties.interlacing = "p";
    properties.aspect = "1:1";
    properties.range = arguments.range;
    const auto writer =
        createFrames(arguments.output, {arguments.format, arguments.size, properties,
                                        arguments.out.rate, arguments.out.kind});
    Progress progress(arguments.frames);
    for (std::uint32_t frame = 0; frame < arguments.frames && !writer->full(); ++frame) {
        drawChart(chart.view(), frame, arguments.matrix, arguments.range);
        convertImage(std::as_const(chart).view(), image.view());
        writer->write(std::as_const(image).view());
        progress.show(frame + 1);
    }
    writer->commit();
}

}  // namespace orva::tool
