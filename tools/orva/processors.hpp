// How many processors the program may keep busy.
#pragma once

namespace orva::tool {

// Those that the process may run on, or fewer where a control group of it has less time than that.
// At least one.
unsigned usableProcessors();

}  // namespace orva::tool
