// stolvane list: names and keys, and the years of the books.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <string>
#include <vector>

#include "automation/CallInWords.h"
#include "automation/Masters.h"
#include "automation/Nearest.h"
#include "host/BooksLookup.h"
#include "host/Command.h"
#include "host/OutputWords.h"
#include "host/Period.h"
#include "session/data/TextFold.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {
namespace {

constexpr std::string_view kYears = "years";

struct ListOptions {
  std::string what, books, text;
  OutputOptions output;
};

std::vector<std::string_view> Words() {
  std::vector<std::string_view> words;
  for (const automation::Master* master : automation::Masters()) words.push_back(master->word);
  words.push_back(kYears);
  return words;
}

std::string WordsWithBars() {
  std::string text;
  for (const std::string_view word : Words()) text += (text.empty() ? "" : "|") + std::string(word);
  return text;
}

RecordsetPtr YearsOf(BooksLookup& books, const std::string& text) {
  RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("YearNo", adInteger);
  rowset->Fields().Append("Year", adVarChar, 20);
  rowset->Fields().Append("From", adDate);
  rowset->Fields().Append("To", adDate);
  rowset->Open();
  for (const AccountingYear& year : books.Years()) {
    if (NameOf(year).find(text) == std::string::npos) continue;
    rowset->AddNew();
    rowset->Set(ColumnHandle{0}, year.number);
    rowset->SetText(ColumnHandle{1}, NameOf(year));
    rowset->Set(ColumnHandle{2}, year.first);
    rowset->Set(ColumnHandle{3}, year.last);
    rowset->Update();
  }
  if (rowset->RecordCount() > 0) rowset->MoveFirst();
  return rowset;
}

void List(const ListOptions& options) {
  BooksLookup books(options.books);
  RecordsetPtr rowset;
  if (EqualFolded(options.what, kYears)) {
    rowset = YearsOf(books, options.text);
  } else if (const automation::Master* master = automation::FindMaster(options.what)) {
    rowset = books.List(*master, options.text);
  } else {
    throw automation::WrongCall(
        fmt::format("there is no list of \"{}\"{}; there are {}", options.what,
                    automation::DidYouMean(options.what, Words()), WordsWithBars()));
  }
  Write(*rowset, {.title = options.what}, options.output,
        [&rowset] { return ExportJson(*rowset); });
}

}  // namespace

void AddListCommand(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<ListOptions>();
  CLI::App* list = app.add_subcommand("list", "Names and keys in the books, and their years");
  list->add_option("WHAT", options->what, WordsWithBars())->required();
  list->add_option("BOOKS", options->books, "the books")->required();
  list->add_option("TEXT", options->text, "only those with this text in their name");
  AddOutput(*list, options->output);
  list->footer("Examples:\n  stolvane list items mine.db helmet\n  stolvane list years mine.db");
  list->callback([&asked, options] {
    options->output.books = options->books;
    asked.command = [options] {
      List(*options);
      return kSuccess;
    };
  });
}

}  // namespace pstolvane1::host
