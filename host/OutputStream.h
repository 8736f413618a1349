// A stream into a file, a device, a pipe or the standard output that tells what went wrong.
#pragma once

#include <array>
#include <cerrno>
#include <ostream>
#include <streambuf>
#include <string>

#include "session/data/Error.h"

namespace pstolvane1::host {

// Error 3001: one sentence for what the system says with this number.
[[nodiscard]] Error CannotWrite(const std::string& what, int number);

// Bytes for a descriptor that stays its owner's. What comes behind a failure is dropped.
class DescriptorBuffer : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor);

  // 0, or the system's number of the failure.
  [[nodiscard]] int Failure() const { return failure_; }

 protected:
  int_type overflow(int_type byte) override;
  int sync() override;

 private:
  void WriteOut();

  int descriptor_;
  int failure_ = 0;
  std::array<char, 65536> bytes_;
};

// Writes all that `write` puts out. Error 3001, told with the name, when the descriptor does not
// take it; a reader that goes away early is none.
template <typename Write>
void WriteInto(int descriptor, const std::string& name, Write&& write) {
  DescriptorBuffer buffer(descriptor);
  std::ostream out(&buffer);
  write(out);
  out.flush();
  if (buffer.Failure() != 0 && buffer.Failure() != EPIPE) {
    throw CannotWrite(name, buffer.Failure());
  }
}

// Where the standard input, output or error is closed, files that are opened would take its place,
// the books among them; from now on writing there fails as before.
void OccupyClosedDescriptors();

// Writes a text to the standard output, as above.
void WriteToStandardOutput(const std::string& text);

}  // namespace pstolvane1::host
