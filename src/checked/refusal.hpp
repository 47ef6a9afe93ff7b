// What a check says of an argument: done, or which field is refused and why.
#pragma once

#include <orva/convert.h>

namespace orva {

struct Refusal {
    int32_t code = ORVA_DONE;
    const char* field = "";
    int64_t value = 0;
    const char* advice = "";

    explicit operator bool() const { return code != ORVA_DONE; }
};

// Whether the caller's structure, which may be null, is one that this version can fill.
Refusal checkError(const OrvaError* error);

// Tells a caller who wants to know, and returns the code.
int32_t tell(const Refusal& refusal, OrvaError* error);

}  // namespace orva
