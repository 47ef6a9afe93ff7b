// The output file that is not finished yet: SIGHUP, SIGINT and SIGTERM remove it.
#pragma once

namespace orva::tool {

// The name of the file, which must last until the next call, or null when there is none. One file
// at a time. Windows does not remove open files, so that nothing happens there.
void setUnfinished(const char* name);

}  // namespace orva::tool
