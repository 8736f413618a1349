// Every shape command that a report sends is read.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include "session/data/Error.h"
#include "session/data/ShapeParser.h"
#include "tests/SourcePath.h"

namespace pstolvane1::shape {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> CommandFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SourcePath("tests/queries"))) {
    if (entry.path().extension() == ".shape") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string CommandOf(const fs::path& path) {
  std::ifstream file(path);
  std::string text;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("--")) text += line + '\n';
  }
  return text;
}

std::size_t CountQueries(const Command& command);

std::size_t CountQueries(const Source& source) {
  if (const auto* nested = std::get_if<std::unique_ptr<Command>>(&source)) {
    return CountQueries(**nested);
  }
  return 1;
}

std::size_t CountQueries(const Command& command) {
  std::size_t count = CountQueries(command.source);
  for (const auto& item : command.appended) {
    if (const auto* relation = std::get_if<Relation>(&item)) count += CountQueries(relation->child);
  }
  return count;
}

TEST(ShapeQueries, OfTheReportsAreReadAndPrintedTheSameTwice) {
  const std::vector<fs::path> files = CommandFiles();
  EXPECT_FALSE(files.empty());
  for (const fs::path& file : files) {
    SCOPED_TRACE(file);
    const std::string text = CommandOf(file);
    try {
      const Command command = Parse(text);
      const std::string printed = Print(command);
      EXPECT_EQ(Print(Parse(printed)), printed);
      // no SELECT of a report holds a brace, so each pair of them is one query of the tree
      EXPECT_EQ(CountQueries(command),
                static_cast<std::size_t>(std::count(text.begin(), text.end(), '{')));
    } catch (const Error& error) {
      ADD_FAILURE() << error.Description();
    }
  }
}

const Relation& Appended(const Command& command, std::size_t at) {
  return std::get<Relation>(command.appended.at(at));
}

TEST(ShapeQueries, LayersHaveThreeChaptersByTheStockKey) {
  const std::string on_key =
      " relate item_id to item_id , godown_id to godown_id , batch_id to batch_id ) as ";
  const Command layers =
      Parse("shape { keys } append ( { movements }" + on_key + "chptrans , ( { sales }" + on_key +
            "chpsales , ( { sums }" + on_key + "chpyearlyavg ");
  ASSERT_EQ(layers.appended.size(), 3U);
  const char* names[] = {"chptrans", "chpsales", "chpyearlyavg"};
  for (std::size_t i = 0; i < 3; ++i) {
    const Relation& chapter = Appended(layers, i);
    EXPECT_EQ(chapter.name.text, names[i]);
    ASSERT_EQ(chapter.keys.size(), 3U);
    EXPECT_EQ(chapter.keys[0].parent.text, "item_id");
    EXPECT_EQ(chapter.keys[1].child.text, "godown_id");
    EXPECT_EQ(chapter.keys[2].child.text, "batch_id");
  }
}

TEST(ShapeQueries, ReceiptsLieUnderTheBillsOfADocument) {
  const Command bills = Parse(
      "shape { documents }  as rsbillbybill append ( { lines } relate voucher_id to related_id ) "
      "as chsalebill , (( shape { bills }  as chsalebills append ({ receipts } relate "
      "billbybill_id to billbybill_id) as chreceiptbills ) relate voucher_id to voucher_id) as "
      "chsalereceiptbill ");
  ASSERT_EQ(bills.appended.size(), 2U);
  EXPECT_EQ(Appended(bills, 0).name.text, "chsalebill");
  EXPECT_EQ(Appended(bills, 1).name.text, "chsalereceiptbill");
  const auto& nested = *std::get<std::unique_ptr<Command>>(Appended(bills, 1).child);
  EXPECT_EQ(nested.name.text, "chsalebills");
  EXPECT_EQ(Appended(nested, 0).name.text, "chreceiptbills");
}

TEST(ShapeQueries, CategoriesAreGroupedByThreeColumns) {
  const Command categories =
      Parse(" shape { lines }  as chap compute chap by 'categoryname', 'id','itemcategory_id' ");
  ASSERT_TRUE(categories.compute.has_value());
  ASSERT_EQ(categories.compute->by.size(), 3U);
  EXPECT_EQ(categories.compute->by[0].text, "categoryname");
  EXPECT_EQ(categories.compute->by[1].text, "id");
  EXPECT_EQ(categories.compute->by[2].text, "itemcategory_id");
}

}  // namespace
}  // namespace pstolvane1::shape
