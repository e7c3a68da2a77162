#include "base/descriptor.h"

#include <unistd.h>

#include <cerrno>

namespace feltmaster {

int Descriptor::Close() {
  const int number = std::exchange(number_, -1);
  return number < 0 ? 0 : ::close(number);
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace feltmaster
