// Texts that one engine would take otherwise than the other by itself, and what they come to.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/engine/Reading.h"

namespace pstolvane1 {

// In the words of both engines.
inline constexpr const char* kTablesOfSameExit =
    "CREATE TABLE t (id INTEGER, x DOUBLE PRECISION, qty REAL, cost DECIMAL(12,2),"
    " count DECIMAL(9), rate DECIMAL(19,4));"
    "INSERT INTO t VALUES (1, 1e300, 2, 2.75, 7, 2.75);"
    "CREATE VIEW doubled AS WITH a AS (SELECT id, qty * 2 AS q FROM t), b(q) AS (SELECT q FROM a)"
    " SELECT q + 1 AS q FROM b;"
    "CREATE VIEW counted AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
    " WHERE i < 3) SELECT sum(i) + 0 AS s FROM n;";

struct SameExit {
  std::string text;
  std::vector<std::string> lines;
  std::string error = {};  // its number
};

// "first", and so many times "more".
inline std::string Times(std::string first, const std::string& more, int count) {
  for (; count > 0; --count) first += more;
  return first;
}

// Of one row each.
inline std::string CountOfTables(int count) {
  std::string text = "SELECT count(*) AS n FROM t a0";
  for (int i = 1; i < count; ++i) text += " CROSS JOIN t a" + std::to_string(i);
  return text;
}

inline const std::vector<SameExit> kSameExits{
    // Floats that leave their range.
    {"SELECT id FROM t WHERE 1e308 * 10 = 1", {}, "6"},
    {"SELECT 1e308 * 10 AS r FROM t", {}, "6"},
    {"SELECT id FROM t WHERE x * x > 1", {}, "6"},
    {"SELECT id FROM t WHERE x * 1e10 = x * 1e10 + 1", {}, "6"},
    {"SELECT x * x - x * x AS r FROM t", {}, "6"},
    {"SELECT 1 / (x * x) AS r FROM t", {}, "6"},
    {"SELECT sum(x * x) AS r FROM t", {}, "6"},
    {"SELECT CASE WHEN x * x > 1 THEN 1 ELSE 0 END AS r FROM t", {}, "6"},
    {"SELECT x / 1e-300 AS r FROM t", {}, "6"},
    {"SELECT id FROM t WHERE isnull(x * x, 0) > 1", {}, "6"},
    {"SELECT d.r FROM (SELECT x * x AS r FROM t) d WHERE d.r > 1", {}, "6"},
    {"SELECT max(x * x) AS r FROM t", {}, "6"},
    {"SELECT x * 10 AS r FROM t", {"1e+301"}},
    // Decimals of other than four places are cut where money is rounded.
    {"SELECT cast(cost AS int) AS c, cast(rate AS int) AS r FROM t", {"2|3"}},
    {"SELECT cast(count AS int) AS c FROM t", {"7"}},
    {"SELECT sum(cost) AS c FROM t WHERE cost = 2.75", {"2.75"}},
    // A union in parentheses is reckoned first.
    {"SELECT 1 AS a UNION ALL (SELECT 1 AS a UNION SELECT 1 AS a)", {"1", "1"}},
    {"SELECT 1 AS a UNION ALL (SELECT 1 AS a UNION ALL SELECT 1 AS a)", {"1", "1", "1"}},
    {"SELECT 1 AS a UNION (SELECT 1 AS a UNION ALL SELECT 1 AS a)", {"1"}},
    {"SELECT 1 AS a UNION ALL (SELECT TOP 1 id AS a FROM t ORDER BY id)", {"1", "1"}},
    {"SELECT 1 AS a UNION ALL (SELECT 2 UNION SELECT 2)", {}, "-2147217900"},
    // Views that begin with WITH.
    {"SELECT q FROM doubled", {"5"}},
    {"SELECT s FROM counted", {"6"}},
    {"SELECT nothing FROM doubled", {}, "-2147217900"},
    // As many tables and unions as both take, and one more.
    {CountOfTables(64), {"1"}},
    {CountOfTables(65), {}, "-2147217900"},
    {Times("SELECT id FROM t", " UNION SELECT id FROM t", 499), {"1"}},
    {Times("SELECT id FROM t", " UNION SELECT id FROM t", 500), {}, "-2147217900"},
};

inline void ExpectSameExits(Provider& books) {
  for (const SameExit& same : kSameExits) {
    std::vector<std::string> lines;
    const std::string error = ErrorOf([&] { lines = Lines(books, same.text); });
    EXPECT_EQ(lines, same.lines) << same.text;
    EXPECT_EQ(error.substr(0, error.find(' ')), same.error.empty() ? "no" : same.error)
        << same.text << ": " << error;
  }
}

}  // namespace pstolvane1
