// The tree of a shape command: which queries run, and how their rows are put together.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pstolvane1::shape {

// A name with its quotes taken off, and the byte of the command at which it stands.
struct Name {
  std::string text;
  std::size_t place = 0;

  [[nodiscard]] bool Given() const { return !text.empty(); }
};

// Names of columns and chapters are the same in any case.
[[nodiscard]] bool SameName(std::string_view a, std::string_view b);

// One SELECT, as it stands between the braces.
struct Query {
  std::string select;
  std::size_t place = 0;
};

struct Command;
// Where rows come from: a query, or a shape command of its own.
using Source = std::variant<Query, std::unique_ptr<Command>>;

enum class Function { kSum, kCount, kMin, kMax, kAvg, kAny };
[[nodiscard]] std::string_view NameOf(Function function);  // "SUM"

// FUNCTION(chapter.column) AS name. COUNT may leave the column out and then counts rows. A name
// that is not given is the function's.
struct Aggregate {
  Function function = Function::kSum;
  Name chapter;
  Name column;
  Name name;
};

struct KeyPair {
  Name parent;
  Name child;
};

// (child RELATE a TO b, ...) AS name: per parent row the child rows with the same keys.
struct Relation {
  Source child;
  std::vector<KeyPair> keys;
  Name name;
};

// COMPUTE columns BY by: one row per group of the source's rows, in order of first appearance; one
// row for all of them where by is empty. The columns are those of `computed`, then those of `by`.
struct Compute {
  struct Chapter {
    Name rows;  // the source's name
    Name name;
  };
  std::vector<std::variant<Chapter, Aggregate>> computed;
  std::vector<Name> by;
};

struct Command {
  Source source;
  Name name;  // what COMPUTE calls the source's rows
  std::vector<std::variant<Relation, Aggregate>> appended;
  std::optional<Compute> compute;  // never together with appended
};

// The command in one spelling: keywords in capitals, names in brackets, queries as they stand.
// Reading it again gives the same tree apart from the places, unless it has grown beyond the
// parser's limit of length.
[[nodiscard]] std::string Print(const Command& command);

}  // namespace pstolvane1::shape
