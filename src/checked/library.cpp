// The library about itself, and the texts of its errors.
#include "checked/refusal.hpp"
#include "picture/active_kernels.hpp"

#include <algorithm>
#include <array>
#include <cstring>

namespace orva {
namespace {

// Writes pieces of text one behind another, as far as they fit, and counts all.
class Text {
public:
    Text(char* text, size_t size) : text(text), room(text && size > 0 ? size - 1 : 0) {
        if (text && size > 0) {
            text[0] = 0;
        }
    }

    void add(const char* piece) {
        if (piece) {
            add(piece, std::strlen(piece));
        }
    }

    void add(int64_t value) {
        std::array<char, 20> digits;
        size_t first = digits.size();
        uint64_t rest =
            value < 0 ? ~static_cast<uint64_t>(value) + 1 : static_cast<uint64_t>(value);
        do {
            digits[--first] = static_cast<char>('0' + rest % 10);
            rest /= 10;
        } while (rest > 0);
        if (value < 0) {
            digits[--first] = '-';
        }
        add(&digits[first], digits.size() - first);
    }

    size_t length() const { return total; }

private:
    void add(const char* piece, size_t length) {
        if (total < room) {
            const size_t fitting = std::min(length, room - total);
            std::memcpy(text + total, piece, fitting);
            text[total + fitting] = 0;
        }
        total += length;
    }

    char* text;
    size_t room;
    size_t total = 0;
};

}  // namespace

Refusal checkError(const OrvaError* error) {
    if (error && error->structSize != sizeof *error) {
        return {ORVA_BAD_STRUCT_SIZE, "error.structSize", error->structSize,
                "set it to sizeof(OrvaError) of this version's header"};
    }
    return {};
}

int32_t tell(const Refusal& refusal, OrvaError* error) {
    if (error && error->structSize == sizeof *error) {
        *error = {sizeof *error, refusal.code, refusal.value, refusal.field, refusal.advice};
    }
    return refusal.code;
}

}  // namespace orva

using namespace orva;

const char* orva_version(void) { return ORVA_VERSION; }

const char* orva_instruction_set(void) {
    for (const picture::Table& table : picture::tables) {
        if (table.kernels == picture::activeKernels) {
            return table.instructionSet;
        }
    }
    return "";
}

size_t orva_describe(const OrvaError* error, char* text, size_t size) {
    Text all(text, size);
    if (!error || error->structSize != sizeof *error) {
        return 0;
    }
    if (error->code == ORVA_DONE) {
        all.add("done");
    } else {
        all.add(error->field);
        all.add(" is ");
        all.add(error->value);
        all.add(": ");
        all.add(error->advice);
    }
    return all.length();
}
