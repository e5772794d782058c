// SPDX-License-Identifier: MIT
#include <tessera/base/detail/ByteOutput.h>

namespace tessera::detail {

ByteOutput::~ByteOutput() = default;

void ByteOutput::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view piece = bytes.substr(0, MaxRoom);
    char *room = Room(piece.size());
    std::memcpy(room, piece.data(), piece.size());
    Advance(room + piece.size());
    bytes.remove_prefix(piece.size());
  }
}

void NoOutput::Write(std::string_view /*bytes*/) {}

}  // namespace tessera::detail
