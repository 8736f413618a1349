#include "host/ServeCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "host/BooksLookup.h"
#include "host/CallWarnings.h"
#include "host/Command.h"
#include "host/OutputWords.h"
#include "host/Period.h"
#include "host/ReportHead.h"
#include "host/StopSignals.h"
#include "viewer/Server.h"

namespace pstolvane1::host {
namespace {

struct Options {
  std::string books;
  OutputOptions look;
  int port = 0;
};

int Serve(const Options& options) {
  const viewer::Books books = BooksFor(options.books, options.look);
  static_cast<void>(books.years());  // books that cannot be opened are told here
  static_cast<void>(books.paper());  // and so is a letterhead
  viewer::Server server({books, options.port, options.look.locale, {}});
  std::cout << "The books are open in the browser at\n  " << server.Address()
            << "\nThe address is for this machine and for you. Ctrl-C ends it.\n"
            << std::flush;
  DoUntilSignal([&server] { server.Stop(); }, [&server] { server.Run(); });
  return kSuccess;
}

}  // namespace

viewer::Books BooksFor(const std::string& connection, OutputOptions look) {
  look.books = connection;
  viewer::Books books;
  books.connection = connection;
  books.years = [connection] {
    std::vector<viewer::Year> years;
    BooksLookup lookup(connection);
    for (const AccountingYear& year : lookup.Years()) {
      years.push_back({year.number, NameOf(year), year.first, year.last});
    }
    return years;
  };
  books.names = [connection](const automation::Master& names, const std::string& text) {
    return BooksLookup(connection).List(names, text);
  };
  books.name_of = [connection](const automation::Master& names, std::int32_t key) {
    return BooksLookup(connection).NameOf(names, key);
  };
  books.paper = [look] { return PrintStyleOf(look); };
  books.present = [look](const automation::CallInWords& call, const Locale& locale) {
    // The look asks on for as long as it is used.
    const auto lookup = std::make_shared<BooksLookup>(look.books);
    const automation::KeysOfBooks keys = lookup->Keys();
    ReportLook words = automation::LookOf(
        call, CompanyOf(look),
        {[lookup, ask = keys.name_of](const automation::Master& names, std::int32_t key) {
           return ask(names, key);
         },
         [lookup, ask = keys.above](const automation::Master& groups, std::int64_t key) {
           return ask(groups, key);
         }},
        locale, Today());
    return viewer::Presentation{std::move(words), WarningsOf(call, *lookup)};
  };
  return books;
}

void AddServeCommand(CLI::App& app, Asked& asked) {
  const auto options = std::make_shared<Options>();
  CLI::App* serve = app.add_subcommand("serve", "The reports in the browser");
  serve->add_option("--books,BOOKS", options->books, "the books")
      ->required()
      ->option_text("CONNECTION");
  serve->add_option("--port", options->port, "where it is served; 0 is any free one")
      ->check(CLI::Range(0, 65535))
      ->option_text("N");
  AddLook(*serve, options->look);
  serve->footer("Only this machine reaches it.\nExample:\n  stolvane serve --books mine.db");
  serve->callback([&asked, options] { asked.command = [options] { return Serve(*options); }; });
}

}  // namespace pstolvane1::host
