#include "session/data/ShapeParser.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "session/data/Error.h"

namespace pstolvane1::shape {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || c == '#' || c == '@' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsFirstByte(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

// Keywords are ASCII, and only their own letters in either case are theirs.
bool SameWord(std::string_view a, std::string_view b) {
  const auto lower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [lower](char x, char y) { return lower(x) == lower(y); });
}

// The character that ends what this one opens, or 0.
char ClosingQuote(char c) {
  switch (c) {
    case '\'':
    case '"':
    case '`':
      return c;
    case '[':
      return ']';
    default:
      return 0;
  }
}

constexpr std::array kFunctions{Function::kSum, Function::kCount, Function::kMin,
                                Function::kMax, Function::kAvg,   Function::kAny};

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  Command Read() {
    if (text_.size() > Limits::kLength) {
      Refuse(0, "the command is longer than " + std::to_string(Limits::kLength) + " bytes");
    }
    Command command = ReadCommand();
    SkipSpace();
    if (Peek() == ';') ++place_;
    SkipSpace();
    if (place_ < text_.size()) Expected("APPEND, COMPUTE or the end of the command");
    return command;
  }

 private:
  // What stands between the parentheses of APPEND, before it is known whether it is a relation.
  struct Item {
    Source source;
    Name name;
    std::vector<KeyPair> keys;
  };

  class Deeper {
   public:
    Deeper(const Parser& parser, int& depth, int limit, std::string_view what) : depth_(depth) {
      if (++depth_ > limit) {
        parser.Refuse(parser.place_, std::string(what) + " stand more than " +
                                         std::to_string(limit) + " deep in each other");
      }
    }
    ~Deeper() { --depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

   private:
    int& depth_;
  };
  Deeper InCommand() { return {*this, commands_, Limits::kCommands, "commands"}; }
  Deeper InParentheses() { return {*this, parentheses_, Limits::kParentheses, "parentheses"}; }

  Command ReadCommand() {
    const Deeper deeper = InCommand();
    ExpectWord("SHAPE");
    Command command;
    command.source = ReadSource();
    command.name = ReadAlias();
    if (NextIsWord("APPEND")) {
      ReadAppend(command);
    } else if (NextIsWord("COMPUTE")) {
      ReadCompute(command);
    }
    return command;
  }

  // {SELECT} or (SHAPE ...), with any number of parentheses.
  Source ReadSource() {
    SkipSpace();
    if (Peek() == '{') return ReadQuery();
    if (NextIsWord("SHAPE")) return std::make_unique<Command>(ReadCommand());
    if (Peek() != '(') Expected("{ and a SELECT, or ( and a SHAPE command");
    const Deeper deeper = InParentheses();
    ++place_;
    Source source = ReadSource();
    Expect(')');
    return source;
  }

  Query ReadQuery() {
    const std::size_t open = place_++;
    Query query{{}, place_};
    for (int braces = 1;; ++place_) {
      if (place_ >= text_.size()) Refuse(open, "this { has no }");
      const char c = text_[place_];
      if (c == '{') ++braces;
      if (c == '}' && --braces == 0) break;
      if (c == '-' && Peek(1) == '-') {
        place_ = std::min(text_.find('\n', place_), text_.size() - 1);
      } else if (c == '/' && Peek(1) == '*') {
        const std::size_t end = text_.find("*/", place_ + 2);
        if (end == std::string_view::npos) Refuse(place_, "this comment has no */");
        place_ = end + 1;
      } else if (const char closing = ClosingQuote(c)) {
        const std::size_t end = text_.find(closing, place_ + 1);
        if (end == std::string_view::npos) Refuse(place_, NotClosed(c, closing));
        place_ = end;
      }
    }
    query.select = text_.substr(query.place, place_ - query.place);
    ++place_;
    if (std::all_of(query.select.begin(), query.select.end(), IsSpace)) {
      Refuse(open, "expected a SELECT between { and }");
    }
    if (++queries_ > Limits::kQueries) {
      Refuse(open, "the command has more than " + std::to_string(Limits::kQueries) + " queries");
    }
    return query;
  }

  void ReadAppend(Command& command) {
    ExpectWord("APPEND");
    for (;;) {
      if (std::optional<Function> function = NextIsFunction()) {
        command.appended.emplace_back(ReadAggregate(*function, [&](const Name& chapter) {
          const auto is_chapter = [&](const auto& item) {
            const Relation* relation = std::get_if<Relation>(&item);
            return relation != nullptr && SameName(relation->name.text, chapter.text);
          };
          if (std::none_of(command.appended.begin(), command.appended.end(), is_chapter)) {
            Refuse(chapter.place, "no chapter " + chapter.text + " was appended before this");
          }
        }));
      } else {
        command.appended.emplace_back(ReadRelation());
      }
      const bool comma = TakeIf(',');
      if (TakeIfWord("APPEND")) continue;
      if (!comma) return;
    }
  }

  Relation ReadRelation() {
    SkipSpace();
    if (Peek() != '(') Expected("( and the query of a chapter, or an aggregate");
    Item item = ReadItem(true);
    Name name = ReadAlias();
    if (!name.Given()) name = std::move(item.name);
    if (!name.Given()) Expected("AS and the chapter's name");
    return {std::move(item.source), std::move(item.keys), std::move(name)};
  }

  // (source AS name RELATE ...), where the parentheses may be doubled around any part of it.
  Item ReadItem(bool relates) {
    const Deeper deeper = InParentheses();
    Expect('(');
    SkipSpace();
    Item item;
    if (Peek() == '(') {
      item = ReadItem(false);
    } else {
      item.source = ReadSource();
    }
    if (Name name = ReadAlias(); name.Given()) item.name = std::move(name);
    if (!item.name.Given()) item.name = OwnName(item.source);
    if (item.keys.empty() && TakeIfWord("RELATE")) item.keys = ReadKeys();
    SkipSpace();
    if (item.keys.empty() && (relates || Peek() != ')')) Expected("RELATE");
    if (Peek() != ')') Expected(", or )");
    ++place_;
    return item;
  }

  static Name OwnName(const Source& source) {
    const auto* command = std::get_if<std::unique_ptr<Command>>(&source);
    return command == nullptr ? Name{} : (*command)->name;
  }

  std::vector<KeyPair> ReadKeys() {
    std::vector<KeyPair> keys;
    do {
      Name parent = ReadName("a column of the parent");
      ExpectWord("TO");
      keys.push_back({std::move(parent), ReadName("a column of the chapter's query")});
      CheckKeys(keys.size(), keys.back().parent.place, "RELATE");
    } while (TakeIf(','));
    return keys;
  }

  void ReadCompute(Command& command) {
    const std::size_t place = place_;
    ExpectWord("COMPUTE");
    const Name rows = command.name.Given() ? command.name : OwnName(command.source);
    if (!rows.Given()) Expected("AS and a name for the rows before COMPUTE", place);
    const auto check = [&](const Name& name) {
      if (SameName(name.text, rows.text)) return;
      Refuse(name.place, "expected " + rows.text + ", the name of the rows, found " + name.text);
    };
    Compute& compute = command.compute.emplace();
    do {
      if (std::optional<Function> function = NextIsFunction()) {
        compute.computed.emplace_back(ReadAggregate(*function, check));
      } else {
        const Name chapter = ReadName("the name of the rows or an aggregate");
        check(chapter);
        Name name = ReadAlias();
        if (!name.Given()) name = chapter;
        compute.computed.emplace_back(Compute::Chapter{chapter, std::move(name)});
      }
    } while (TakeIf(','));
    if (!TakeIfWord("BY")) return;
    do {
      compute.by.push_back(ReadName("a column to group by"));
      CheckKeys(compute.by.size(), compute.by.back().place, "BY");
    } while (TakeIf(','));
  }

  template <typename CheckChapter>
  Aggregate ReadAggregate(Function function, CheckChapter check) {
    Aggregate aggregate;
    aggregate.function = function;
    const Name word = ReadName("an aggregate");
    Expect('(');
    aggregate.chapter = ReadName("a chapter");
    check(aggregate.chapter);
    if (TakeIf('.')) {
      aggregate.column = ReadName("a column of the chapter");
    } else if (function != Function::kCount) {
      Expected(". and a column of " + aggregate.chapter.text);
    }
    Expect(')');
    aggregate.name = ReadAlias();
    if (!aggregate.name.Given()) aggregate.name = {std::string(NameOf(function)), word.place};
    return aggregate;
  }

  // [AS] name, or no name.
  Name ReadAlias() {
    if (TakeIfWord("AS")) return ReadName("a name");
    SkipSpace();
    static constexpr std::array<std::string_view, 6> kBehindAName{"APPEND", "COMPUTE", "RELATE",
                                                                  "BY",     "TO",      "SHAPE"};
    const auto is_next = [this](std::string_view word) { return NextIsWord(word); };
    if (std::any_of(kBehindAName.begin(), kBehindAName.end(), is_next)) return {};
    if (!IsNameCharacter(Peek()) && ClosingQuote(Peek()) == 0) return {};
    return ReadName("a name");
  }

  Name ReadName(std::string_view what) {
    SkipSpace();
    Name name{{}, place_};
    if (const char closing = ClosingQuote(Peek())) {
      const char opening = text_[place_++];
      for (;; ++place_) {
        if (place_ >= text_.size()) Refuse(name.place, NotClosed(opening, closing));
        if (text_[place_] == closing) {
          if (Peek(1) != closing) break;
          ++place_;
        }
        name.text += text_[place_];
      }
      ++place_;
      if (name.text.empty()) Refuse(name.place, "expected " + std::string(what) + " in the quotes");
      return name;
    }
    name.text = WordAt(place_);
    if (name.text.empty()) Expected(what);
    place_ += name.text.size();
    return name;
  }

  std::optional<Function> NextIsFunction() {
    SkipSpace();
    for (const Function function : kFunctions) {
      if (!NextIsWord(NameOf(function))) continue;
      std::size_t behind = place_ + NameOf(function).size();
      while (behind < text_.size() && IsSpace(text_[behind])) ++behind;
      if (behind < text_.size() && text_[behind] == '(') return function;
    }
    return std::nullopt;
  }

  std::string_view WordAt(std::size_t place) const {
    std::size_t end = place;
    while (end < text_.size() && IsNameCharacter(text_[end])) ++end;
    return text_.substr(place, end - place);
  }

  bool NextIsWord(std::string_view word) {
    SkipSpace();
    return SameWord(WordAt(place_), word);
  }

  bool TakeIfWord(std::string_view word) {
    if (!NextIsWord(word)) return false;
    place_ += word.size();
    return true;
  }

  void ExpectWord(std::string_view word) {
    if (!TakeIfWord(word)) Expected(word);
  }

  bool TakeIf(char c) {
    SkipSpace();
    if (Peek() != c) return false;
    ++place_;
    return true;
  }

  void Expect(char c) {
    if (!TakeIf(c)) Expected(std::string_view(&c, 1));
  }

  char Peek(std::size_t ahead = 0) const {
    return place_ + ahead < text_.size() ? text_[place_ + ahead] : '\0';
  }

  void SkipSpace() {
    while (place_ < text_.size() && IsSpace(text_[place_])) ++place_;
  }

  void CheckKeys(std::size_t count, std::size_t place, std::string_view clause) const {
    if (count <= Limits::kKeys) return;
    Refuse(place,
           std::string(clause) + " has more than " + std::to_string(Limits::kKeys) + " columns");
  }

  static std::string NotClosed(char opening, char closing) {
    return std::string("this ") + opening + " has no closing " + closing;
  }

  [[noreturn]] void Expected(std::string_view what) {
    SkipSpace();
    Expected(what, place_);
  }

  [[noreturn]] void Expected(std::string_view what, std::size_t place) const {
    std::string found = "the end of the command";
    if (place < text_.size()) {
      found = WordAt(place);
      if (found.empty()) found = text_[place];
    }
    Refuse(place, "expected " + std::string(what) + ", found " + found);
  }

  [[noreturn]] void Refuse(std::size_t place, const std::string& why) const {
    throw Error(ErrorNumber::kQueryRefused, PlaceIn(text_, place) + ": " + why);
  }

  std::string_view text_;
  std::size_t place_ = 0;
  int commands_ = 0;
  int parentheses_ = 0;
  int queries_ = 0;
};

}  // namespace

bool IsCommand(std::string_view text) {
  const auto begin = std::find_if_not(text.begin(), text.end(), IsSpace);
  const auto end = std::find_if_not(begin, text.end(), IsNameCharacter);
  return SameWord({begin, end}, "SHAPE");
}

Command Parse(std::string_view text) { return Parser(text).Read(); }

std::string PlaceIn(std::string_view text, std::size_t place) {
  const std::string_view before = text.substr(0, std::min(place, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const auto line_begin = before.begin() + static_cast<std::ptrdiff_t>(before.rfind('\n') + 1);
  const auto column = std::count_if(line_begin, before.end(), IsFirstByte) + 1;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string InPlace(std::string_view command, const Query& query) {
  const std::string_view before = command.substr(0, query.place);
  const auto line_begin = before.begin() + static_cast<std::ptrdiff_t>(before.rfind('\n') + 1);
  std::string moved(static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')), '\n');
  moved.append(static_cast<std::size_t>(std::count_if(line_begin, before.end(), IsFirstByte)), ' ');
  return moved + query.select;
}

}  // namespace pstolvane1::shape
