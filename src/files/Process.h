#pragma once

namespace strativo {

/// To be called before anything else in a program: a file that may not grow any further is an error
/// of the write, and standard descriptors that were closed become no file that is opened later;
/// reading from them and writing to them go on to fail.
void PrepareProcess();

} // namespace strativo
