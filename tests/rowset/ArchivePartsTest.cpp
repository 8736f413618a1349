// Parts of an archive that broke off.
#include <gtest/gtest.h>
#include <string>

#include "session/data/Error.h"
#include "session/rowset/ArchiveParts.h"

namespace pstolvane1 {
namespace {

std::string Bytes(std::size_t number, int count) {
  std::string bytes;
  for (; count > 0; --count, number >>= 8U) bytes.push_back(static_cast<char>(number & 0xFFU));
  return bytes;
}

// A part that is not packed, with what stands before it: signature, version, flags, method, time,
// day, checksum, the two sizes, the sizes of the name and of what is beside it.
std::string Part(const std::string& name, const std::string& text, int method = 0) {
  return "PK\3\4" + Bytes(20, 2) + Bytes(0, 2) + Bytes(static_cast<std::size_t>(method), 2) +
         Bytes(0, 8) + Bytes(text.size(), 4) + Bytes(text.size(), 4) + Bytes(name.size(), 2) +
         Bytes(3, 2) + name + "xyz" + text;
}

constexpr const char* kWhole = "<?xml version=\"1.0\"?>\n<a:sheet xmlns=\"x\"><row/></a:sheet>\n";

TEST(ArchiveParts, AreWholeWhenTheirDocumentIsClosed) {
  EXPECT_EQ(BrokenPart(Part("one.xml", kWhole) + Part("two.xml", "<b></b>") + "PK\1\2"), "");
  for (const char* broken : {"", "<", "<?xml version=\"1.0\"?>", "<a:sheet><row/>",
                             "<a><row></row>", "<a></a></b>", "<a><row></a", "no document"}) {
    EXPECT_EQ(BrokenPart(Part("one.xml", kWhole) + Part("two.xml", broken)), "two.xml") << broken;
  }
}

TEST(ArchiveParts, WhatIsNoArchiveIsRefused) {
  const std::string archive = Part("one.xml", kWhole);
  EXPECT_THROW((void)BrokenPart(""), Error);
  EXPECT_THROW((void)BrokenPart("<a></a>"), Error);
  EXPECT_THROW((void)BrokenPart(Part("one.xml", kWhole, 8)), Error) << "not packed as it says";
  for (std::size_t size = 0; size < archive.size(); ++size) {
    EXPECT_THROW((void)BrokenPart(archive.substr(0, size)), Error) << size;
  }
}

}  // namespace
}  // namespace pstolvane1
