// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

// Unsigned numbers inside the bytes of a file. The bytes at `at` must be there.

inline std::uint32_t ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

inline std::uint32_t Little16(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8;
}

inline std::uint32_t Little32(std::string_view bytes, std::size_t at) {
  return Little16(bytes, at) | Little16(bytes, at + 2) << 16;
}

inline std::uint32_t Big32(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) << 24 | ByteAt(bytes, at + 1) << 16 | ByteAt(bytes, at + 2) << 8 |
         ByteAt(bytes, at + 3);
}

// The number's `size` lowest bytes, the lowest first.
inline std::string LittleBytes(std::uint64_t number, std::size_t size) {
  std::string bytes;
  for (; bytes.size() < size; number >>= 8) bytes += static_cast<char>(number & 0xff);
  return bytes;
}

}  // namespace korvane
