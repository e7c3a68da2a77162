#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace feltmaster {

// An open file of the system, closed at the end of its life.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    Close();
    number_ = std::exchange(other.number_, -1);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  // As close(2): 0, or -1 with errno.
  int Close();

  // All of the bytes, at the place where the file stands or at the one given. False with errno.
  bool Write(std::string_view bytes) const;
  bool WriteAt(std::uint64_t place, std::string_view bytes) const;

 private:
  int number_;
};

// A new name is on the disk only when its folder is. A folder that cannot be flushed is no fault.
void FlushFolderOf(const std::string& path);

}  // namespace feltmaster
