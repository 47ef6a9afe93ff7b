// All conversions under test.
#pragma once

#include "golden/exports.hpp"

namespace test {

using orva::golden::Export;
using orva::golden::exports;
using orva::golden::Format;

}  // namespace test
