#pragma once

#include <vector>

#include "streams/stream.h"

namespace zktest {

using StreamBytes = std::vector<unsigned char>;

// The bytes that a value's stream form puts on a memory stream.
template <class T>
StreamBytes StreamForm(const T& value) {
    vMEMSTREAM stream;
    value >> stream;
    StreamBytes bytes(stream.Size());
    stream.MoveFromStart(0);
    stream.ReadByteString(bytes.data(), bytes.size());
    return bytes;
}

// The stream holds the bytes, ready to be read from their start.
inline void Refill(vMEMSTREAM& stream, const StreamBytes& bytes) {
    stream.WriteBlock(bytes.data(), bytes.size());
    stream.MoveFromStart(0);
}

// Reads a value back from bytes with its stream form; the stream's status
// afterwards tells whether the bytes were enough.
template <class T>
vSTREAMSTATUS ReadStreamForm(const StreamBytes& bytes, T& value) {
    vMEMSTREAM stream;
    Refill(stream, bytes);
    value << stream;
    return stream.Status();
}

}  // namespace zktest
