#include "base/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace feltmaster {

namespace {

// write_some takes what is left and how much of it is left, as write(2) does.
template <typename WriteSome>
bool WriteAll(std::string_view bytes, WriteSome&& write_some) {
  while (!bytes.empty()) {
    const ssize_t written = write_some(bytes);
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

int Descriptor::Close() {
  const int number = std::exchange(number_, -1);
  return number < 0 ? 0 : ::close(number);
}

bool Descriptor::Write(std::string_view bytes) const {
  return WriteAll(
      bytes, [this](std::string_view rest) { return ::write(number_, rest.data(), rest.size()); });
}

bool Descriptor::WriteAt(std::uint64_t place, std::string_view bytes) const {
  return WriteAll(bytes, [&](std::string_view rest) {
    const ssize_t written = ::pwrite(number_, rest.data(), rest.size(), static_cast<off_t>(place));
    if (written > 0) place += static_cast<std::uint64_t>(written);
    return written;
  });
}

void FlushFolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.IsOpen()) ::fsync(directory.Number());
}

}  // namespace feltmaster
