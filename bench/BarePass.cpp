// SPDX-License-Identifier: GPL-3.0-or-later
#include "BarePass.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>

namespace korvane {

namespace {

[[noreturn]] void Fail(const std::filesystem::path& file) {
  throw std::system_error(errno, std::generic_category(), file.string());
}

class Descriptor {
 public:
  Descriptor(const std::filesystem::path& file, int flags) : number_(::open(file.c_str(), flags, 0644)) {
    if (number_ < 0) Fail(file);
  }
  ~Descriptor() { ::close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  operator int() const { return number_; }

 private:
  int number_;
};

std::size_t CountCrs(const char* at, const char* end) {
  std::size_t count = 0;
  while ((at = static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at))))) {
    ++count;
    if (++at == end) break;
  }
  return count;
}

}  // namespace

std::function<void()> BareRead(Paths files) {
  const auto buffer = std::make_shared<std::vector<char>>();
  return [files = std::move(files), buffer] {
    [[maybe_unused]] volatile std::size_t lines = 0;
    for (const auto& file : files) {
      const std::size_t wanted = std::filesystem::file_size(file);
      if (wanted > buffer->size()) buffer->resize(wanted);
      const ssize_t size = ::read(Descriptor(file, O_RDONLY), buffer->data(), wanted);
      if (size < 0) Fail(file);
      if (size > 0) lines = CountCrs(buffer->data(), buffer->data() + size);
    }
  };
}

void PlainWrite(const std::filesystem::path& file, std::string_view bytes) {
  const Descriptor target(file, O_WRONLY | O_CREAT | O_TRUNC);
  if (::write(target, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) Fail(file);
  if (::fsync(target) != 0) Fail(file);
}

std::string ReadWhole(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace korvane
