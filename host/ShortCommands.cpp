// stolvane stock, months, sales ...: reports in few words.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>
#include <memory>
#include <string>
#include <vector>

#include "automation/Nearest.h"
#include "automation/ShortForms.h"
#include "host/BooksLookup.h"
#include "host/Command.h"
#include "host/Offered.h"
#include "host/OutputWords.h"
#include "host/Period.h"
#include "host/RunCommand.h"
#include "session/data/TextFold.h"
#include "session/enmValuationMethod.h"

namespace pstolvane1::host {
namespace {

using automation::Choice;
using automation::ShortForm;

constexpr float kThousand = 1000;
constexpr float kLakh = 100'000;

struct ShortOptions {
  std::string word, books, period, by, method, only;
  bool detailed = false, alternate_units = false, thousands = false, lakhs = false;
  bool explain = false;
  RunOptions run;
};

std::vector<const ShortForm*> FormsOf(std::string_view word) {
  std::vector<const ShortForm*> forms;
  for (const ShortForm& form : automation::ShortForms()) {
    if (form.word == word) forms.push_back(&form);
  }
  return forms;
}

const ShortForm& FormOf(const ShortOptions& options) {
  if (const ShortForm* form = automation::FindShortForm(options.word, options.by)) return *form;
  std::vector<std::string_view> known;
  std::string told;
  for (const ShortForm* form : FormsOf(options.word)) {
    known.push_back(form->by);
    told += (told.empty() ? "" : ", ") + std::string(form->by);
  }
  throw automation::WrongCall(fmt::format("{} --by takes {}, not \"{}\"{}", options.word, told,
                                          options.by, automation::DidYouMean(options.by, known)));
}

automation::ShortChoice ChoiceOf(const ShortOptions& options, const ShortForm& form,
                                 BooksLookup& books) {
  const Period period = PeriodOf(options.period, books.Years());
  automation::ShortChoice choice;
  choice.year = period.year;
  choice.from = period.from;
  choice.to = period.to;
  choice.method = options.method;
  choice.detailed = options.detailed;
  choice.alternate_units = options.alternate_units;
  if (options.thousands) choice.scale = kThousand;
  if (options.lakhs) choice.scale = kLakh;
  if (options.only.empty()) return choice;
  if (form.only == nullptr) {
    throw automation::WrongCall(fmt::format("{} --by {} takes no --only", form.word, form.by));
  }
  // A number is a key; what is none, or beyond any key, is a name.
  const char* const end = options.only.data() + options.only.size();
  std::int32_t key = 0;
  const auto [read_to, failure] = std::from_chars(options.only.data(), end, key);
  const bool is_key = read_to == end && failure == std::errc() && key >= 0;
  choice.only = is_key ? key : books.KeyOf(*form.only, options.only);
  return choice;
}

// As a shell reads it back.
std::string ForShell(const std::string& word) {
  const bool plain = word.find_first_not_of(
                         "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                         "_-=./:,+@") == std::string::npos;
  if (plain && !word.empty()) return word;
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string Explained(const automation::CallWords& call) {
  std::string text = "stolvane run " + call.operation + " --books " + ForShell(call.books);
  for (const std::string& rowset : call.rowsets) text += " \\\n  --rowset " + ForShell(rowset);
  for (const std::string& argument : call.arguments) text += " \\\n  " + ForShell(argument);
  return text + "\n";
}

void RunShort(const ShortOptions& options) {
  const ShortForm& form = FormOf(options);
  BooksLookup books(options.books);
  RunOptions run = options.run;
  run.call.operation = form.operation;
  run.call.books = options.books;
  run.call.locale = run.output.locale;
  run.output.books = options.books;
  try {
    run.call.arguments = automation::ArgumentsOf(form, ChoiceOf(options, form, books));
  } catch (const Error& error) {
    if (error.Number() != ErrorNumber::kArgumentOutOfRange) throw;
    throw automation::WrongCall(error.Description());
  }
  if (const std::string rowset = automation::RowsetOf(form); !rowset.empty()) {
    run.call.rowsets = {rowset};
  }
  if (options.explain) {
    WriteText(Explained(run.call), {});
  } else {
    Run(run, books);
  }
}

bool AnyTakes(const std::vector<const ShortForm*>& forms, Choice choice) {
  return std::ranges::any_of(forms, [&](const ShortForm* form) { return Takes(*form, choice); });
}

std::string NamesOf(const std::vector<const ShortForm*>& forms, const std::string& between) {
  std::string text;
  for (const ShortForm* form : forms) text += (text.empty() ? "" : between) + std::string(form->by);
  return text;
}

std::string ByHelp(const std::vector<const ShortForm*>& forms) {
  return "by " + NamesOf(forms, ", ") + "; without it by " + std::string(forms.front()->by);
}

std::string NamesOfMethods() {
  std::string names;
  for (const EnumName& method : kValuationMethodNames) {
    names += (names.empty() ? "" : " ") + Folded(method.name);
  }
  return names;
}

void AddShortCommand(CLI::App& app, Asked& asked, const ShortForm& first) {
  const auto options = std::make_shared<ShortOptions>();
  options->word = first.word;
  const std::vector<const ShortForm*> forms = FormsOf(first.word);
  CLI::App* command =
      app.add_subcommand(std::string(first.word), std::string(automation::HelpOf(first)));
  command->group("Reports");
  command->add_option("BOOKS", options->books, "the books")->required();
  if (AnyTakes(forms, Choice::kFirstDay)) {
    command->add_option("PERIOD", options->period,
                        "2004-05, 2004-08 or 2004-04..2004-06; without it the last year");
  }
  if (forms.size() > 1) {
    Offer(*command->add_option("--by", options->by, ByHelp(forms))->option_text("WHAT"),
          NamesOf(forms, " "));
  }
  const bool names =
      std::ranges::any_of(forms, [](const ShortForm* form) { return form->only != nullptr; });
  if (names) {
    command->add_option("--only", options->only, "the one with this name, or this key")
        ->option_text("NAME");
  }
  if (AnyTakes(forms, Choice::kMethod)) {
    CLI::Option* const method =
        command
            ->add_option("--method", options->method,
                         "how stock is valued: fifo, lifo, average ...; without it average")
            ->option_text("METHOD");
    Offer(*method, NamesOfMethods());
  }
  if (AnyTakes(forms, Choice::kDetailed)) {
    command->add_flag("--detailed", options->detailed, "with the lines behind each line");
  }
  if (AnyTakes(forms, Choice::kAlternateUnits)) {
    command->add_flag("--alt-units", options->alternate_units, "in the alternate unit as well");
  }
  if (AnyTakes(forms, Choice::kMoneyScale)) {
    CLI::Option* const thousands =
        command->add_flag("--thousands", options->thousands, "money in thousands");
    command->add_flag("--lakhs", options->lakhs, "money in lakhs")->excludes(thousands);
  }
  command->add_flag("--explain", options->explain, "print the full call, do not run it");
  AddOutput(*command, options->run.output);
  AddQuiet(*command, options->run.quiet);
  const bool needs_name = first.only != nullptr && first.all.empty();
  command->footer(
      fmt::format("Example:\n  stolvane {} mine.db 2004-05{}", first.word,
                  needs_name ? " --only \"" + std::string(first.only->one) + "'s name\"" : ""));
  command->callback([&asked, options] {
    asked.command = [options] {
      RunShort(*options);
      return kSuccess;
    };
  });
}

}  // namespace

void AddShortCommands(CLI::App& app, Asked& asked) {
  std::string_view word;
  for (const ShortForm& form : automation::ShortForms()) {
    if (form.word != word) AddShortCommand(app, asked, form);
    word = form.word;
  }
}

}  // namespace pstolvane1::host
