#include "session/data/FilterComparison.h"

#include <bit>
#include <cmath>

#include "session/data/Ascii.h"
#include "session/data/DecimalText.h"
#include "session/data/FilterDate.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

namespace {

using Op = FilterOperator;
using Value = FilterValue;

template <typename Cell>
struct WholeCells {
  static constexpr bool kCheap = true;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    const std::int64_t value = chunk.Values<Cell>(column)[row];
    return ((c.whole.low <= value) & (value <= c.whole.high)) != c.negate;
  }
};

struct FlagCells {
  static constexpr bool kCheap = true;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    const std::int64_t value = chunk.Values<std::int16_t>(column)[row] != 0 ? -1 : 0;
    return (value == c.whole.low) != c.negate;
  }
};

template <typename Cell>
struct RealCells {
  static constexpr bool kCheap = true;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    const double value = chunk.Values<Cell>(column)[row];
    return ((c.real.low <= value) & (value <= c.real.high)) != c.negate;
  }
};

struct DateCells {
  static constexpr bool kCheap = false;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    const double value = Date(chunk.Values<double>(column)[row]).Elapsed();
    return (c.real.low <= value && value <= c.real.high) != c.negate;
  }
};

struct EqualTexts {
  static constexpr bool kCheap = false;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    return EqualFolded(chunk.Text(column, row), c.text) != c.negate;
  }
};

struct OrderedTexts {
  static constexpr bool kCheap = false;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    const int order = CompareFolded(chunk.Text(column, row), c.text);
    return order == 0 ? c.or_equal : order == c.sign;
  }
};

struct LikeTexts {
  static constexpr bool kCheap = false;
  static bool Meets(const FilterComparison& c, const Chunk& chunk, std::size_t column,
                    std::size_t row) {
    return LikeFolded(chunk.Text(column, row), c.text) != c.negate;
  }
};

struct AnyCells {
  static constexpr bool kCheap = true;
  static bool Meets(const FilterComparison&, const Chunk&, std::size_t, std::size_t) {
    return true;
  }
};

template <typename Cells>
bool Test(const FilterComparison& c, const Chunk& chunk, std::size_t row) {
  const auto column = static_cast<std::size_t>(c.column);
  return !chunk.IsNull(column, row) && Cells::Meets(c, chunk, column, row);
}

template <typename Cells>
void Scan(const FilterComparison& c, const Chunk& chunk, std::size_t first, std::size_t end,
          std::uint64_t* bits) {
  const auto column = static_cast<std::size_t>(c.column);
  const std::uint64_t* present = chunk.Present(column);
  for (std::size_t row = first; row < end; row += 64) {
    const std::size_t count = std::min<std::size_t>(64, end - row);
    const std::uint64_t there = present[row >> 6] & (~std::uint64_t{0} >> (64 - count));
    std::uint64_t met = 0;
    if constexpr (Cells::kCheap) {
      for (std::size_t i = 0; i < count; ++i) {
        met |= std::uint64_t{Cells::Meets(c, chunk, column, row + i)} << i;
      }
      met &= there;
    } else {
      for (std::uint64_t left = there; left != 0; left &= left - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(left));
        met |= std::uint64_t{Cells::Meets(c, chunk, column, row + i)} << i;
      }
    }
    *bits++ = met;
  }
}

template <typename Cells>
void Use(FilterComparison& c) {
  c.test = &Test<Cells>;
  c.scan = &Scan<Cells>;
}

bool TestNull(const FilterComparison& c, const Chunk& chunk, std::size_t row) {
  return chunk.IsNull(static_cast<std::size_t>(c.column), row);
}

void ScanNull(const FilterComparison& c, const Chunk& chunk, std::size_t first, std::size_t end,
              std::uint64_t* bits) {
  const std::uint64_t* present = chunk.Present(static_cast<std::size_t>(c.column));
  for (std::size_t row = first; row < end; row += 64) {
    const std::size_t count = std::min<std::size_t>(64, end - row);
    *bits++ = ~present[row >> 6] & (~std::uint64_t{0} >> (64 - count));
  }
}

// Sets the bounds for whole numbers and counts of ten-thousandths. A value between two of them
// counts as just above the lower.
void SetWhole(FilterComparison& c, Op op, const DecimalText::Scaled& value) {
  using Limits = std::numeric_limits<std::int64_t>;
  constexpr FilterComparison::Whole kNone{1, 0};
  constexpr FilterComparison::Whole kAll{Limits::min(), Limits::max()};
  const std::int64_t floor = value.floor;
  const bool hit = value.exact && value.in_range;
  const bool below_all = !value.in_range && floor == Limits::min();
  c.negate = op == Op::kNotEqual;
  switch (op) {
    case Op::kEqual:
    case Op::kNotEqual:
      c.whole = hit ? FilterComparison::Whole{floor, floor} : kNone;
      break;
    case Op::kLess:
    case Op::kGreaterOrEqual: {
      const bool less = op == Op::kLess;
      if (below_all || (hit && floor == Limits::min())) {
        c.whole = less ? kNone : kAll;
      } else {
        const std::int64_t last_below = hit ? floor - 1 : floor;
        if (less) {
          c.whole = {Limits::min(), last_below};
        } else {
          c.whole = last_below == Limits::max()
                        ? kNone
                        : FilterComparison::Whole{last_below + 1, Limits::max()};
        }
      }
      break;
    }
    case Op::kLessOrEqual:
      c.whole = below_all ? kNone : FilterComparison::Whole{Limits::min(), floor};
      break;
    case Op::kGreater:
      if (below_all) {
        c.whole = kAll;
      } else {
        c.whole =
            floor == Limits::max() ? kNone : FilterComparison::Whole{floor + 1, Limits::max()};
      }
      break;
    case Op::kLike:
      break;
  }
  c.is_equality = op == Op::kEqual && hit;
}

template <typename Cell>
void SetReal(FilterComparison& c, Op op, Cell value) {
  constexpr Cell kEnd = std::numeric_limits<Cell>::infinity();
  const auto below = static_cast<double>(std::nextafter(value, -kEnd));
  const auto above = static_cast<double>(std::nextafter(value, kEnd));
  const auto exact = static_cast<double>(value);
  const auto end = static_cast<double>(kEnd);
  c.negate = op == Op::kNotEqual;
  switch (op) {
    case Op::kEqual:
    case Op::kNotEqual:
      c.real = {exact, exact};
      break;
    case Op::kLess:
      c.real = {-end, below};
      break;
    case Op::kLessOrEqual:
      c.real = {-end, exact};
      break;
    case Op::kGreater:
      c.real = {above, end};
      break;
    case Op::kGreaterOrEqual:
      c.real = {exact, end};
      break;
    case Op::kLike:
      break;
  }
  c.is_equality = op == Op::kEqual;
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string Told(const Value& value) {
  switch (value.kind) {
    case Value::Kind::kNumber:
      return "the number " + std::string(value.text);
    case Value::Kind::kText:
      return "the text '" + std::string(value.text) + "'";
    case Value::Kind::kDate:
      return "the date " + value.date.ToIso();
    case Value::Kind::kTrue:
      return "True";
    case Value::Kind::kFalse:
      return "False";
    case Value::Kind::kNull:
      break;
  }
  return "Null";
}

std::string CannotCompare(const ColumnInfo& column, std::string_view holds, const Value& value) {
  return "the column " + Quoted(column.name) + " holds " + std::string(holds) +
         " and cannot be compared with " + Told(value);
}

bool TestsForEquality(Op op) { return op == Op::kEqual || op == Op::kNotEqual; }

std::string OnlyEquality(const ColumnInfo& column, std::string_view what) {
  return "the column " + Quoted(column.name) + " can be compared with " + std::string(what) +
         " by = and <> only";
}

void UseNumberCells(FilterComparison& c, DataType type) {
  switch (type) {
    case adInteger:
      return Use<WholeCells<std::int32_t>>(c);
    case adSingle:
      return Use<RealCells<float>>(c);
    case adDouble:
      return Use<RealCells<double>>(c);
    default:
      return Use<WholeCells<std::int64_t>>(c);
  }
}

void SetNumber(FilterComparison& c, DataType type, Op op, std::string_view text,
               const DecimalText& number) {
  switch (type) {
    case adSingle: {
      const auto value = static_cast<float>(DoubleOf(text));
      SetReal(c, op, value);
      c.key = CellKey::OfNumber(static_cast<double>(value));
      break;
    }
    case adDouble: {
      const double value = DoubleOf(text);
      SetReal(c, op, value);
      c.key = CellKey::OfNumber(value);
      break;
    }
    case adCurrency:
      SetWhole(c, op, number.TimesTenTo(4));
      c.key = CellKey::OfMoney(Currency::FromTenThousandths(c.whole.low));
      break;
    default:
      SetWhole(c, op, number.TimesTenTo(0));
      c.key = CellKey::OfWhole(c.whole.low);
      break;
  }
}

FilterProblem BindNumber(FilterComparison& c, const ColumnInfo& column, Op op, const Value& value) {
  UseNumberCells(c, column.type);
  if (value.kind == Value::Kind::kTrue || value.kind == Value::Kind::kFalse) {
    if (!TestsForEquality(op)) return OnlyEquality(column, Told(value));
    // Is it 0 or not?
    const bool zero = (value.kind == Value::Kind::kFalse) == (op == Op::kEqual);
    SetNumber(c, column.type, zero ? Op::kEqual : Op::kNotEqual, "0", *DecimalText::Read("0"));
    return std::nullopt;
  }
  const std::string_view text = Trimmed(value.text);
  const std::optional<DecimalText> number = DecimalText::Read(text);
  if (value.kind == Value::Kind::kDate || !number) return CannotCompare(column, "numbers", value);
  SetNumber(c, column.type, op, text, *number);
  return std::nullopt;
}

// True, False, or a number, of which only 0 is False.
std::optional<bool> FlagOf(const Value& value) {
  if (value.kind == Value::Kind::kTrue) return true;
  if (value.kind == Value::Kind::kFalse) return false;
  if (value.kind == Value::Kind::kDate) return std::nullopt;
  const std::string_view text = Trimmed(value.text);
  if (EqualFolded(text, "true")) return true;
  if (EqualFolded(text, "false")) return false;
  if (!DecimalText::Read(text)) return std::nullopt;
  return DoubleOf(text) != 0;
}

FilterProblem BindFlag(FilterComparison& c, const ColumnInfo& column, Op op, const Value& value) {
  const std::optional<bool> flag = FlagOf(value);
  if (!flag) return CannotCompare(column, "flags", value);
  if (!TestsForEquality(op)) return OnlyEquality(column, "a flag");
  Use<FlagCells>(c);
  c.whole.low = *flag ? -1 : 0;
  c.negate = op == Op::kNotEqual;
  c.is_equality = op == Op::kEqual;
  c.key = CellKey::OfWhole(c.whole.low);
  return std::nullopt;
}

FilterProblem BindDate(FilterComparison& c, const ColumnInfo& column, Op op, const Value& value) {
  std::optional<Date> date;
  if (value.kind == Value::Kind::kDate) date = value.date;
  if (value.kind == Value::Kind::kText) date = ReadFilterDate(value.text);
  if (!date) return CannotCompare(column, "dates", value);
  Use<DateCells>(c);
  SetReal(c, op, date->Elapsed());
  c.key = CellKey::OfDate(*date);
  return std::nullopt;
}

FilterProblem BindText(FilterComparison& c, const ColumnInfo& column, Op op, bool negated,
                       const Value& value) {
  if (value.kind != Value::Kind::kText && value.kind != Value::Kind::kNumber) {
    return CannotCompare(column, "text", value);
  }
  c.text = value.text;
  if (op == Op::kLike) {
    Use<LikeTexts>(c);
    c.negate = negated;
  } else if (TestsForEquality(op)) {
    Use<EqualTexts>(c);
    c.negate = op == Op::kNotEqual;
    c.is_equality = op == Op::kEqual;
    c.key = CellKey::OfText(value.text);
  } else {
    Use<OrderedTexts>(c);
    c.sign = op == Op::kLess || op == Op::kLessOrEqual ? -1 : 1;
    c.or_equal = op == Op::kLessOrEqual || op == Op::kGreaterOrEqual;
  }
  return std::nullopt;
}

FilterProblem BindNull(FilterComparison& c, const ColumnInfo& column, Op op) {
  if (!TestsForEquality(op)) return OnlyEquality(column, "Null");
  if (op == Op::kEqual) {
    c.test = &TestNull;
    c.scan = &ScanNull;
    c.is_equality = true;
    c.key = CellKey();
  } else {
    Use<AnyCells>(c);
  }
  return std::nullopt;
}

}  // namespace

FilterOperator Opposite(FilterOperator op) {
  switch (op) {
    case Op::kEqual:
      return Op::kNotEqual;
    case Op::kNotEqual:
      return Op::kEqual;
    case Op::kLess:
      return Op::kGreaterOrEqual;
    case Op::kLessOrEqual:
      return Op::kGreater;
    case Op::kGreater:
      return Op::kLessOrEqual;
    case Op::kGreaterOrEqual:
      return Op::kLess;
    case Op::kLike:
      break;
  }
  return op;
}

FilterProblem Bind(FilterComparison& comparison, int number, const ColumnInfo& column,
                   FilterOperator op, bool negated, const FilterValue& value) {
  comparison = {};
  comparison.column = number;
  const bool is_text = column.type == adBSTR || column.type == adVarChar;
  if (column.type == adChapter) {
    return "the column " + Quoted(column.name) + " holds rowsets, which cannot be compared";
  }
  if (op == Op::kLike && (!is_text || value.kind != Value::Kind::kText)) {
    return "LIKE compares a text column with a 'text'; the column " + Quoted(column.name) +
           (is_text ? " stands before " + Told(value) : " holds no text");
  }
  if (value.kind == Value::Kind::kNull) return BindNull(comparison, column, op);
  if (is_text) return BindText(comparison, column, op, negated, value);
  if (column.type == adDate) return BindDate(comparison, column, op, value);
  if (column.type == adBoolean) return BindFlag(comparison, column, op, value);
  return BindNumber(comparison, column, op, value);
}

}  // namespace pstolvane1
