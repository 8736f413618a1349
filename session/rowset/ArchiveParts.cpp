#include "session/rowset/ArchiveParts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <zlib.h>

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

// What stands before each part, in the order of its bytes.
constexpr std::string_view kPartFollows("PK\3\4", 4);
constexpr std::size_t kMethodAt = 8;
constexpr std::size_t kSizeAt = 18;
constexpr std::size_t kNameSizeAt = 26;
constexpr std::size_t kExtraSizeAt = 28;
constexpr std::size_t kNameAt = 30;
constexpr std::uint32_t kPacked = 8;

[[noreturn]] void RefuseArchive() {
  throw Error(ErrorNumber::kArgumentOutOfRange, "the workbook is no archive that can be read");
}

std::string_view Piece(std::string_view archive, std::size_t from, std::size_t size) {
  if (from > archive.size() || size > archive.size() - from) RefuseArchive();
  return archive.substr(from, size);
}

// A number of so many bytes, the lowest first.
std::uint32_t Number(std::string_view archive, std::size_t from, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes; i > 0; --i) {
    number = number << 8U | static_cast<unsigned char>(Piece(archive, from + i - 1, 1)[0]);
  }
  return number;
}

// The first and the last bytes of a text that comes piece by piece.
class Ends {
 public:
  void Add(std::string_view piece) {
    constexpr std::size_t kEnough = 512;
    first_ += piece.substr(0, kEnough - std::min(kEnough, first_.size()));
    last_ += piece;
    if (last_.size() > kEnough) last_.erase(0, last_.size() - kEnough);
  }
  // Whether the document's own tag is closed at the end.
  [[nodiscard]] bool Whole() const {
    std::size_t from = first_.find('<');
    if (first_.compare(0, 2, "<?") == 0) from = first_.find('<', 1);
    if (from == std::string::npos) return false;
    const std::string name =
        first_.substr(from + 1, first_.find_first_of(" >\r\n", from) - from - 1);
    const std::string_view text =
        std::string_view(last_).substr(0, last_.find_last_not_of("\r\n") + 1);
    return text.ends_with("</" + name + ">");
  }

 private:
  std::string first_;
  std::string last_;
};

class Unpacker {
 public:
  Unpacker() {
    // No header of its own stands before the bytes of an archive's part.
    if (inflateInit2(&stream_, -MAX_WBITS) != Z_OK) throw std::bad_alloc();
  }
  ~Unpacker() { inflateEnd(&stream_); }
  Unpacker(const Unpacker&) = delete;
  Unpacker& operator=(const Unpacker&) = delete;

  void Unpack(std::string_view packed, Ends& ends) {
    std::basic_string<Bytef> bytes(packed.begin(), packed.end());
    stream_.next_in = bytes.data();
    stream_.avail_in = static_cast<uInt>(bytes.size());
    std::array<Bytef, 65536> room{};
    int result = Z_OK;
    while (result == Z_OK) {
      stream_.next_out = room.data();
      stream_.avail_out = room.size();
      result = inflate(&stream_, Z_NO_FLUSH);
      ends.Add(std::string(room.begin(), room.end() - stream_.avail_out));
    }
    if (result != Z_STREAM_END) RefuseArchive();
  }

 private:
  z_stream stream_{};
};

}  // namespace

std::string BrokenPart(std::string_view archive) {
  std::size_t at = 0;
  while (archive.substr(at).starts_with(kPartFollows)) {
    const std::uint32_t name_size = Number(archive, at + kNameSizeAt, 2);
    const std::string_view name = Piece(archive, at + kNameAt, name_size);
    const std::size_t from = at + kNameAt + name_size + Number(archive, at + kExtraSizeAt, 2);
    const std::string_view bytes = Piece(archive, from, Number(archive, at + kSizeAt, 4));
    Ends ends;
    if (Number(archive, at + kMethodAt, 2) == kPacked) {
      Unpacker().Unpack(bytes, ends);
    } else {
      ends.Add(bytes);
    }
    if (!ends.Whole()) return std::string(name);
    at = from + bytes.size();
  }
  if (at == 0) RefuseArchive();
  return {};
}

}  // namespace pstolvane1
