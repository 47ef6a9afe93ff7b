// Kernels that move pixels between formats of different size, byte by byte the same colour: any
// reader of 16-pixel blocks with any writer of them.
#pragma once

#include "rgb/readers.hpp"
#include "rgb/writers.hpp"

namespace orva::ORVA_ISA {

template <class Reader, class Writer> struct RepackJob {
    static constexpr uint32_t unitPixels = 1;
    static constexpr uint32_t blockPixels = 16;
    static constexpr uint32_t streamedPixelBytes = Writer::streamedPixelBytes;

    Reader reader;
    Writer writer;

    ORVA_INLINE explicit RepackJob(const Descriptor& d) : reader(d), writer(d) {}

    ORVA_INLINE uint32_t head() const { return writer.template head<unitPixels>(); }
    ORVA_INLINE uint8_t* streamed() const { return writer.streamed(); }

    template <class V, class Stores> ORVA_INLINE void blocks(Stores stores) {
        writer.put(stores, reader.template take16<V>());
    }

    template <uint32_t count> ORVA_INLINE void units() {
        for (uint32_t i = 0; i < count; ++i)
            writer.putPixel(reader.takePixel());
    }

    ORVA_INLINE void endRow() {
        reader.endRow();
        writer.endRow();
    }
};

template <class Reader, class Writer> void repack(const Descriptor& d, Form form) {
    walkImage(RepackJob<Reader, Writer>(d), d, form);
}

}  // namespace orva::ORVA_ISA
