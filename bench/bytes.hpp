// Only what gives the right bytes is worth measuring.
#pragma once

namespace bench {

// Converts the frames of the documented hashes with every table of kernels that the processor
// supports, which takes about a second. Throws if a byte is wrong.
void checkBytesOfExports();
void checkBytesOfPairs();

}  // namespace bench
