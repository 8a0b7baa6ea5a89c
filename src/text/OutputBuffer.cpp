#include "text/OutputBuffer.h"

namespace strativo {

void OutputBuffer::Flush() {
    if (end != bytes.get())
        sink({bytes.get(), static_cast<std::size_t>(end - bytes.get())});
    end = bytes.get();
}

/// A text longer than the buffer is passed on directly.
void OutputBuffer::HandOn(std::string_view text) {
    Flush();
    if (text.size() > size)
        sink(text);
    else
        Put(text);
}

} // namespace strativo
