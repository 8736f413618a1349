#include <string_view>

#include "session/sql/PostgresEmitter.h"

namespace pstolvane1::sql {
namespace {

// The length of a text that a number becomes where none is told.
constexpr int kTextOfNumber = 30;

// Texts that a whole number of the type never outgrows.
int LongestWhole(Type type) { return type == Type::kBigWhole ? 20 : 11; }

constexpr std::string_view kBlanks = "E' \\t\\r\\n'";

// What a text is read as, and how it has to look; a text that does not is an error 13.
struct Reading {
  std::string_view pattern;  // of the text without blanks around it
  std::string_view empty;    // what an empty text stands for; nothing where it stands for none
  std::string_view what;
};

constexpr Reading kWholeReading{"^[-+]?[0-9]+$", "0", "a whole number"};
constexpr Reading kMoneyReading{"^[-+]?([0-9][0-9,]*\\.?[0-9]*|,*\\.[0-9]+)$", "0",
                                "an amount of money"};
constexpr Reading kDecimalReading{"^[-+]?([0-9]+\\.?[0-9]*|\\.[0-9]+)$", "", "a decimal number"};
constexpr Reading kRealReading{"^[-+]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][-+]?[0-9]+)?$", "0",
                               "a number"};
constexpr Reading kFlagReading{"^[-+]?[0-9]+$", "", "a flag"};
constexpr Reading kDateReading{
    "^(([1-9][0-9]{3}|0[1-9][0-9]{2})(-[0-9]{1,2}-[0-9]{1,2}|[0-9]{4})"
    "|[0-9]{1,2}/[0-9]{1,2}/([1-9][0-9]{3}|0[1-9][0-9]{2}))"
    "(([Tt]| *)([01]?[0-9]|2[0-3]):[0-5][0-9](:[0-5][0-9](\\.[0-9]+)?)? *([AaPp][Mm])?)?$",
    "1900-01-01", "a date"};

std::string Trimmed(const std::string& text) {
  return "btrim(" + text + ", " + std::string(kBlanks) + ")";
}

// A value of the type that fails when it is asked for.
std::string Failing(std::string_view number, const std::string& words, std::string_view type) {
  return "('" + std::string(kPostgresFailure) + std::string(number) + ":' || " + words + " || '" +
         std::string(kPostgresFailureEnd) + "')::int4" +
         (type == "int4" ? "" : "::text::" + std::string(type));
}

// CASE text: read by type where it looks as it should, else the failure. A text that is the same
// for every row comes from a subquery, so that it fails only where a row asks for it.
PostgresText Read(const PostgresText& text, const Reading& reading, const std::string& read,
                  std::string_view type) {
  std::string chosen =
      "CASE WHEN " + Trimmed(text.text) + " ~ '" + std::string(reading.pattern) + "' THEN " + read;
  if (!reading.empty.empty()) {
    chosen += " WHEN " + Trimmed(text.text) + " = '' THEN '" + std::string(reading.empty) +
              "'::" + std::string(type);
  }
  const std::string shown = "'\"' || " + Bracketed(text, PostgresBinding::kAdd) +
                            " || '\" is not " + std::string(reading.what) + "'";
  return {chosen + " WHEN " + Bracketed(text, PostgresBinding::kMember) + " IS NOT NULL THEN " +
          Failing("13", shown, type) + " END"};
}

// A decimal whose every value is an amount of money.
bool IsExactAsMoney(const ValueType& type) {
  constexpr int kSafeDigits = 14;  // before the point
  return type.type == Type::kDecimal && type.places <= 4 &&
         type.digits - type.places <= kSafeDigits;
}

// The text if it has no more characters than told, else the failure.
PostgresText Fitting(const std::string& text, int size, std::string_view from) {
  const std::string length = std::to_string(size);
  const std::string words = text + " || ' is out of range for a text of " + length +
                            " characters made from " + std::string(from) + "'";
  return {"CASE WHEN length(" + text + ") > " + length + " THEN " + Failing("6", words, "text") +
          " ELSE " + text + " END"};
}

// At most six digits, with an exponent from 1e6 on and below 1e-4.
std::string RealText(const PostgresText& value) {
  const std::string form = "to_char(" + value.text + ", '9.99999EEEE')";
  const std::string exponent = "split_part(" + form + ", 'e', 2)::int4";
  const std::string mantissa = "rtrim(rtrim(ltrim(split_part(" + form + ", 'e', 1)), '0'), '.')";
  return "CASE WHEN " + exponent + " BETWEEN -4 AND 5 THEN trim_scale(" + form +
         "::numeric)::text ELSE " + mantissa + " || 'e' || CASE WHEN " + exponent +
         " < 0 THEN '-' ELSE '+' END || lpad(abs(" + exponent + ")::text, 3, '0') END";
}

std::string MomentText(const PostgresText& value) {
  const std::string text = value.text;
  return "to_char(" + text + ", 'Mon ') || lpad(to_char(" + text + ", 'FMDD'), 2) || to_char(" +
         text + ", ' YYYY ') || lpad(to_char(" + text + ", 'FMHH12'), 2) || to_char(" + text +
         ", ':MIAM')";
}

}  // namespace

PostgresText PostgresEmitter::ConvertText(const bound::Convert& node, const ValueType& type) {
  const bound::Expr& operand = *node.operand;
  const Type from = operand.type.type;
  if (type.type == Type::kNull) return Value(operand);
  if (type.type == Type::kText) return ToText(operand, type);
  if (type.type == Type::kDate) return ToDate(operand, type);
  if (type.type == Type::kWhole || type.type == Type::kBigWhole) return ToWhole(operand, type);
  PostgresText value = Value(operand);
  if (from == Type::kText && bound::IsConstant(operand)) value = Unfolded(value);
  const std::string trimmed = Trimmed(value.text);
  if (from == Type::kFlag && type.type != Type::kFlag) value = PostgresCast(value, "int4");
  switch (type.type) {
    case Type::kFlag:
      if (from == Type::kFlag) return value;
      if (from != Type::kText) {
        return {Bracketed(value, PostgresBinding::kMember) + " <> 0", PostgresBinding::kCompare};
      }
      return {"CASE lower(" + trimmed + ") WHEN 'true' THEN TRUE WHEN 'false' THEN FALSE ELSE " +
              Read(value, kFlagReading, trimmed + "::numeric <> 0", "bool").text + " END"};
    case Type::kMoney:
      if (from == Type::kText) {
        return Read(value, kMoneyReading, "round(replace(" + trimmed + ", ',', '')::numeric, 4)",
                    "numeric");
      }
      if (from == Type::kMoney || IsExactAsMoney(operand.type)) return value;
      if (from == Type::kBigWhole) {
        // In ten-thousandths, which fails where there are too many.
        return {Bracketed(value, PostgresBinding::kMultiply) + " * 10000 * 0.0001",
                PostgresBinding::kMultiply};
      }
      if (from < Type::kMoney) return PostgresCast(value, "numeric");
      return PostgresMoney(from == Type::kDecimal ? PostgresCast(value, "float8") : value);
    case Type::kDecimal: {
      const std::string size =
          "numeric(" + std::to_string(type.digits) + "," + std::to_string(type.places) + ")";
      if (from == Type::kText) {
        const std::string places = std::to_string(type.places);
        const PostgresText read = Read(
            value, kDecimalReading, "round(" + trimmed + "::numeric, " + places + ")", "numeric");
        return node.cast ? PostgresCast(read, size) : read;
      }
      const ValueType exact = AsDecimal(operand.type);
      const bool fits = from < Type::kSingle && exact.places <= type.places &&
                        exact.digits - exact.places <= type.digits - type.places;
      if (fits && (from == Type::kMoney || from == Type::kDecimal)) return value;
      if (fits) return PostgresCast(value, "numeric");
      if (from >= Type::kSingle) value = PostgresCast(value, "numeric");
      return PostgresCast(value, size);
    }
    default:
      break;
  }
  if (from == Type::kText) return Read(value, kRealReading, trimmed + "::float8", "float8");
  return from >= Type::kSingle ? value : PostgresCast(value, "float8");
}

PostgresText PostgresEmitter::ToDate(const bound::Expr& operand, const ValueType& type) {
  PostgresText value = Value(operand);
  if (operand.type.type == Type::kDate) {
    const bool cut = operand.type.has_time && !type.has_time;
    return cut ? PostgresCast(value, "date") : value;
  }
  if (bound::IsConstant(operand)) value = Unfolded(value);
  const PostgresText read =
      Read(value, kDateReading, Trimmed(value.text) + "::timestamp", "timestamp");
  return type.has_time ? read : PostgresCast(read, "date");
}

PostgresText PostgresEmitter::ToText(const bound::Expr& operand, const ValueType& type) {
  const ValueType& from = operand.type;
  PostgresText value = Value(operand);
  const int size = type.size == 0 ? kTextOfNumber : type.size;
  switch (from.type) {
    case Type::kFlag:
      return PostgresCast(PostgresCast(value, "int4"), "text");
    case Type::kWhole:
    case Type::kBigWhole: {
      const std::string text = PostgresCast(value, "text").text;
      if (type.size == 0 || type.size >= LongestWhole(from.type)) {
        return {text, PostgresBinding::kCast};
      }
      return {"CASE WHEN length(" + text + ") > " + std::to_string(size) + " THEN '*' ELSE " +
              text + " END"};
    }
    case Type::kMoney:
      return Fitting("round(" + value.text + ", 2)::text", size, "money");
    case Type::kDecimal:
      return Fitting("round(" + value.text + ", " + std::to_string(from.places) + ")::text", size,
                     "a decimal");
    case Type::kSingle:
    case Type::kReal:
      return Fitting("(" + RealText(value) + ")", size, "a number");
    case Type::kDate:
      return PostgresCall(
          "left", {from.has_time ? MomentText(value) : "to_char(" + value.text + ", 'YYYY-MM-DD')",
                   std::to_string(size)});
    default:
      break;
  }
  const bool cut = type.size != 0 && (from.size == 0 || from.size > type.size);
  return cut ? PostgresCall("left", {value.text, std::to_string(size)}) : value;
}

PostgresText PostgresEmitter::ToWhole(const bound::Expr& operand, const ValueType& type) {
  const std::string name = PostgresTypeName(type);
  PostgresText value = Value(operand);
  switch (operand.type.type) {
    case Type::kText:
      if (bound::IsConstant(operand)) value = Unfolded(value);
      return Read(value, kWholeReading, Trimmed(value.text) + "::" + name, name);
    case Type::kFlag:
      value = PostgresCast(value, "int4");
      return type.type == Type::kBigWhole ? PostgresCast(value, name) : value;
    case Type::kDecimal:
    case Type::kSingle:
    case Type::kReal:
      // The server's cast rounds, which is right for money alone.
      return PostgresCast(PostgresCall("trunc", {value.text}), name);
    default:
      return operand.type.type == type.type ? value : PostgresCast(value, name);
  }
}

}  // namespace pstolvane1::sql
