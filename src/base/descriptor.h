#pragma once

#include <string_view>
#include <utility>

namespace feltmaster {

// An open file of the system, closed at the end of its life.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  // 0, or -1 with errno: what was written may not have arrived. Closed in any case.
  int Close();

 private:
  int number_;
};

// Writes all of it, however often the system stops short. False with errno.
bool WriteAll(int file, std::string_view bytes);

}  // namespace feltmaster
