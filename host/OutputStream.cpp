#include "host/OutputStream.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <iterator>
#include <unistd.h>

namespace pstolvane1::host {
namespace {

struct Reason {
  int number;
  const char* words;
};
constexpr Reason kReasons[] = {
    {ENOSPC, "there is no room left on the device"},
    {EDQUOT, "there is no room left for this user"},
    {EFBIG, "it would become too large"},
    {EIO, "the device failed"},
    {EACCES, "this is not allowed"},
    {EPERM, "this is not allowed"},
    {EROFS, "nothing there can be written to"},
    {ENOENT, "there is no such folder"},
    {ENOTDIR, "there is no such folder"},
    {EISDIR, "it is a folder"},
    {ENAMETOOLONG, "the name is too long"},
    {ELOOP, "its links run in a circle"},
    {EBADF, "it is closed"},
    {ENXIO, "nothing is there to take it"},
};

}  // namespace

Error CannotWrite(const std::string& what, int number) {
  const auto* const known = std::find_if(std::begin(kReasons), std::end(kReasons),
                                         [&](const Reason& one) { return one.number == number; });
  return {
      ErrorNumber::kArgumentOutOfRange,
      "cannot write " + what + ": " +
          (known != std::end(kReasons) ? known->words
                                       : "the system gives the number " + std::to_string(number))};
}

DescriptorBuffer::DescriptorBuffer(int descriptor) : descriptor_(descriptor) {
  setp(bytes_.data(), bytes_.data() + bytes_.size());
}

void DescriptorBuffer::WriteOut() {
  const char* from = pbase();
  while (from < pptr() && failure_ == 0) {
    const ssize_t written = ::write(descriptor_, from, static_cast<std::size_t>(pptr() - from));
    if (written >= 0) {
      from += written;
    } else if (errno != EINTR) {
      failure_ = errno;
    }
  }
  setp(bytes_.data(), bytes_.data() + bytes_.size());
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type byte) {
  WriteOut();
  if (failure_ != 0) return traits_type::eof();
  if (byte != traits_type::eof()) sputc(traits_type::to_char_type(byte));
  return traits_type::not_eof(byte);
}

int DescriptorBuffer::sync() {
  WriteOut();
  return failure_ == 0 ? 0 : -1;
}

void OccupyClosedDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
    // The lowest that is free, which is this one.
    [[maybe_unused]] const int taken = open("/dev/null", O_RDONLY);
  }
}

void WriteToStandardOutput(const std::string& text) {
  WriteInto(STDOUT_FILENO, "to the standard output", [&](std::ostream& out) { out << text; });
}

}  // namespace pstolvane1::host
