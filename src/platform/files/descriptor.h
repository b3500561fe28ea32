#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tessel::files {

// An open file of the system, closed in the end. Failures are reported as the system does: a false result and
// errno.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;

    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }

    [[nodiscard]] bool ReadAll(std::string& content) const;  // appends what is left to read
    [[nodiscard]] bool WriteAll(std::string_view content) const;
    bool Close();  // false when the system reports a late failure to write

  private:
    int number_;
};

}  // namespace tessel::files
