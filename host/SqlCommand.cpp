#include "host/SqlCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <iterator>
#include <memory>
#include <unistd.h>

#include "host/Command.h"
#include "host/OutputWords.h"
#include "host/ProgressBar.h"
#include "host/SqlNames.h"
#include "host/SqlPrompt.h"
#include "host/StopSignals.h"
#include "session/CheckCondition.h"
#include "session/data/ThreadWork.h"
#include "session/engine/Engines.h"
#include "session/rowset/Export.h"

namespace pstolvane1::host {

namespace {

// Dates between "#", as conditions have them, between the quotes of the dialect. What stands in
// quotes or brackets stays as it is.
std::string WithQuotedDates(std::string text) {
  char closing = '\0';
  for (char& c : text) {
    if (closing != '\0') {
      if (c == closing) closing = '\0';
    } else if (c == '\'' || c == '"') {
      closing = c;
    } else if (c == '[') {
      closing = ']';
    } else if (c == '#') {
      c = '\'';
    }
  }
  return text;
}

std::string StandardInput() {
  return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
}

void ReadAndWrite(const SqlOptions& options, const std::shared_ptr<Connection>& books,
                  const std::string& select) {
  const std::string text = WithQuotedDates(select);
  if (options.translate) {
    WriteText(books->Translate(text) + "\n", options.output);
    return;
  }
  const RecordsetPtr rowset = Recordset::New();
  {
    const ProgressBar bar("reading");
    rowset->Open(text, books);
  }
  Write(*rowset, {.title = "Query"}, options.output, [&rowset] { return ExportJson(*rowset); });
}

void RunSelect(const SqlOptions& options, const std::shared_ptr<Connection>& books,
               const std::string& select) {
  const auto abandon = [&books, work = ThreadWork::OfThisThread()] {
    work->Abandon(nullptr);
    books->StopReading();
  };
  DoUntilSignal(abandon, [&] {
    const WorkInHand in_hand;
    ReadAndWrite(options, books, select);
  });
}

}  // namespace

void Sql(const SqlOptions& options) {
  if (!options.condition_on.empty()) {
    const std::string wrong = CheckCondition(options.condition_on, options.text);
    if (!wrong.empty()) throw Error(ErrorNumber::kQueryRefused, wrong);
    WriteText("Nothing is wrong with the condition.\n", options.output);
    return;
  }
  const std::shared_ptr<Connection> books = NewConnection();
  books->Open(options.books);
  SqlNames names(options.books);
  const auto run = [&](const std::string& select) { RunSelect(options, books, select); };
  if (options.typed) {
    ReadStatements(std::cin, isatty(STDIN_FILENO) == 1, names, options.output, run);
    return;
  }
  try {
    run(options.text);
  } catch (const Error& error) {
    throw names.WithSuggestion(error, options.text);
  }
}

void AddSqlCommand(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<SqlOptions>();
  CLI::App* sql = app.add_subcommand("sql", "One SELECT of the reports' dialect on any database");
  CLI::Option* const books =
      sql->add_option("--books", options->books, "the database")->option_text("CONNECTION");
  CLI::Option* const text = sql->add_option(
      "TEXT", options->text,
      "the SELECT, or the condition; - reads the standard input; without it a prompt");
  CLI::Option* const condition =
      sql->add_option("--condition", options->condition_on,
                      "check TEXT as a condition on these tables of the reports, without books")
          ->option_text("TABLE,...")
          ->excludes(books);
  sql->add_flag("--translate", options->translate, "print the engine's text, do not run it");
  AddOutput(*sql, options->output);
  sql->footer(
      "Examples:\n"
      "  stolvane sql --books mine.db \"select top 5 * from Items1\"\n"
      "  stolvane sql --books mine.db - < query.sql\n"
      "  stolvane sql --books mine.db                 a prompt with .tables and .columns\n"
      "  stolvane sql --condition Desr1,DesrDetails1 \"Desr1.Date > #03/31/2004#\"");
  sql->callback([&asked, options, books, condition, text] {
    if (books->empty() && condition->empty()) throw CLI::RequiredError(books->get_name());
    if (text->empty() && books->empty()) throw CLI::RequiredError(text->get_name());
    options->typed = text->empty();
    options->output.books = options->books;
    asked.command = [options] {
      if (options->text == "-") options->text = StandardInput();
      Sql(*options);
      return kSuccess;
    };
  });
}

}  // namespace pstolvane1::host
