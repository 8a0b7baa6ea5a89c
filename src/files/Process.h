#pragma once

namespace strativo {

/// To be called before anything else in a program. Afterwards, a file that may not grow any further
/// is a write error, and files opened later never take the place of standard descriptors that were
/// closed: reading from and writing to those keeps failing. No signal is blocked, whatever the
/// program was started with.
void PrepareProcess();

} // namespace strativo
