// The query texts of tests/queries are those that the calls in their heads send, to the last blank.
// With PST_REWRITE_QUERIES=1 the test writes them instead, those that are missing included.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "Call.h"
#include "Play.h"
#include "QueryFile.h"
#include "RecordingBooks.h"
#include "SmallBooks.h"
#include "session/modStolvane1.h"

namespace pstolvane1::golden {
namespace {

struct Sent {
  std::vector<std::string> texts;
  std::vector<std::string> selects;  // what reached the engine of them
  std::string error;                 // of the call
};

Sent Send(const CaseFile& sender) {
  const SmallBooks books(sender.books);
  const auto recording = std::make_shared<RecordingBooks>();
  modStolvane1& module = *modStolvane1::OfThisThread();
  module = modStolvane1();
  clsStolvane1 session(recording->Maker());
  Apply(session, sender, books.ConnectionString());
  Sent sent;
  try {
    (void)Call(session, sender.calls.front(), True);
  } catch (const Error& error) {
    sent.error = error.Description();
  }
  for (const std::string* const text : module.QueryTexts()) {
    if (!text->empty()) sent.texts.push_back(*text);
  }
  sent.selects = recording->Selects();
  for (const TextArgument& argument : sender.calls.front().arguments) {
    if (argument.is_rowset) std::erase(sent.selects, argument.value);
  }
  return sent;
}

// "column 7: why" of "line 1, column 7: why; LedgersByCode needs ...": what the report says behind
// it is not the front end's.
std::string ReasonOf(const std::string& error, const CaseFile& sender) {
  constexpr std::string_view kFirstLine = "line 1, ";
  const std::size_t from = error.starts_with(kFirstLine) ? kFirstLine.size() : 0;
  const std::size_t end = error.find("; " + sender.calls.front().operation);
  return error.substr(from, end == std::string::npos ? end : end - from);
}

bool Rewrites() { return std::getenv("PST_REWRITE_QUERIES") != nullptr; }

// Beside the file that holds another text of the same call.
QueryFile FileOfTheNext(const QueryFile& file, std::size_t number, const std::string& text) {
  QueryFile next = file;
  std::filesystem::path path = file.path;
  path.replace_filename(path.stem().string() + "_" + std::to_string(number) + ".sql");
  next.path = path.string();
  next.number = number;
  next.text = text;
  return next;
}

std::map<std::string, std::string> PathsByText(const std::vector<QueryFile>& files) {
  std::map<std::string, std::string> paths;
  for (const QueryFile& file : files) paths.emplace(file.text, file.path);
  return paths;
}

TEST(SentQueries, AreWhatTheirCallsSend) {
  for (QueryFile file : AllQueries()) {
    if (!file.sender) continue;
    SCOPED_TRACE(file.path);
    const Sent sent = Send(*file.sender);
    ASSERT_LE(file.number, sent.texts.size()) << sent.error;
    const std::string& text = sent.texts[file.number - 1];
    if (Rewrites()) {
      file.text = text;
      if (!file.refused.empty()) file.refused = ReasonOf(sent.error, *file.sender);
      WriteQuery(file);
      continue;
    }
    EXPECT_EQ(file.text, text);
    EXPECT_EQ(file.text.starts_with("shape"), file.path.ends_with(".shape"));
    EXPECT_EQ(file.refused, file.refused.empty() ? "" : ReasonOf(sent.error, *file.sender));
  }
}

TEST(SentQueries, HoldEveryTextOfTheirCalls) {
  const std::vector<QueryFile> files = AllQueries();
  std::map<std::string, std::string> known = PathsByText(files);
  for (const QueryFile& file : files) {
    if (!file.sender) continue;
    const Sent sent = Send(*file.sender);
    for (std::size_t i = 0; i < sent.texts.size(); ++i) {
      if (known.contains(sent.texts[i])) continue;
      const QueryFile missing = FileOfTheNext(file, i + 1, sent.texts[i]);
      if (Rewrites()) {
        WriteQuery(missing);
        known.emplace(missing.text, missing.path);
      } else {
        ADD_FAILURE() << missing.path << " is missing: query " << i + 1 << " of " << file.path;
      }
    }
    for (const std::string& run : sent.selects) {
      const std::string select = Trim(run);  // blanks stand for what a shape command has in front
      const auto is_launched = [&](const std::string& text) {
        return text.find(select) != std::string::npos;
      };
      // Groups may be looked at before a launch.
      const auto stands_alone = [&](const QueryFile& text) { return Trim(text.text) == select; };
      EXPECT_TRUE(std::ranges::any_of(sent.texts, is_launched) ||
                  std::ranges::any_of(files, stands_alone))
          << file.path << " sends more than it launches: " << select;
    }
  }
}

TEST(SentQueries, StandOnce) {
  const std::vector<QueryFile> files = AllQueries();
  const std::map<std::string, std::string> first = PathsByText(files);
  for (const QueryFile& file : files) {
    EXPECT_EQ(file.path, first.at(file.text)) << "the same text stands in both";
  }
}

}  // namespace
}  // namespace pstolvane1::golden
