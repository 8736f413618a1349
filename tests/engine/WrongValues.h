// Statements that meet a column in every way in which a report can.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "tests/engine/Reading.h"

namespace pstolvane1 {

// A table whose first row is in order: in the words of both engines.
inline constexpr const char* kTableInOrder =
    "CREATE TABLE t (id INTEGER PRIMARY KEY, qty REAL, rate DECIMAL(19,4), weight DECIMAL(12,6),"
    " share DOUBLE PRECISION, day DATE, moment TIMESTAMP);"
    "INSERT INTO t VALUES (1, 5, 2.5, 1.25, 0.5, '2004-03-31', '2004-03-31 10:00:00'),"
    " (2, NULL, NULL, NULL, NULL, NULL, NULL)";

// Of a column, and of a value of its type that is in the first row. In most of them the second row
// is passed over, joined away, grouped or summed.
inline std::vector<std::string> StatementsOf(std::string_view column, std::string_view good) {
  std::vector<std::string> statements;
  for (const char* form : {
           "SELECT {0} FROM t",
           "SELECT {0} FROM t WHERE id = 1",
           "SELECT id FROM t WHERE {0} = {1}",
           "SELECT id FROM t WHERE {0} < {1}",
           "SELECT id FROM t WHERE {0} <= {1} AND id = 1",
           "SELECT id FROM t WHERE {0} BETWEEN {1} AND {1}",
           "SELECT id FROM t WHERE NOT ({0} > {1})",
           "SELECT id FROM t WHERE {0} IN ({1}, NULL)",
           "SELECT id FROM t WHERE {0} IS NULL",
           "SELECT count({0}) AS n FROM t",
           "SELECT max({0}) AS m, min({0}) AS l FROM t",
           "SELECT {0}, count(*) AS n FROM t GROUP BY {0}",
           "SELECT DISTINCT {0} FROM t",
           "SELECT id FROM t ORDER BY {0}",
           "SELECT TOP 1 id FROM t ORDER BY {0} DESC",
           "SELECT a.id FROM t a INNER JOIN t b ON a.{0} = b.{0}",
           "SELECT a.id FROM t a LEFT JOIN t b ON a.{0} = b.{0} AND b.id = 1",
           "SELECT CASE WHEN {0} > {1} THEN 1 ELSE 0 END AS c FROM t",
           "SELECT isnull({0}, {1}) AS c FROM t WHERE id = 1",
           "SELECT d.c FROM (SELECT {0} AS c FROM t WHERE id = 1) d",
           "SELECT id FROM t UNION ALL SELECT count({0}) AS n FROM t",
           "SELECT id FROM t WHERE EXISTS (SELECT 1 AS one FROM t b WHERE b.{0} > {1})",
           "SELECT (SELECT max(b.{0}) AS m FROM t b WHERE b.id = 1) AS c FROM t",
       }) {
    statements.push_back(fmt::format(fmt::runtime(form), column, good));
  }
  const bool date = good.front() == '\'';
  const auto more = date ? std::vector<const char*>{"SELECT year({0}) AS y FROM t WHERE id = 1",
                                                    "SELECT cast({0} AS varchar(30)) AS c FROM t"}
                         : std::vector<const char*>{"SELECT sum({0}) AS s FROM t",
                                                    "SELECT avg({0}) AS s FROM t WHERE id = 1",
                                                    "SELECT sum({0} * 2) AS s FROM t GROUP BY id",
                                                    "SELECT sum(CASE WHEN {0} < {1} THEN 1 ELSE 0"
                                                    " END) AS s FROM t",
                                                    "SELECT abs({0}) AS a FROM t WHERE id = 1",
                                                    "SELECT id FROM t GROUP BY id HAVING sum({0})"
                                                    " > 0"};
  for (const char* form : more) {
    statements.push_back(fmt::format(fmt::runtime(form), column, good));
  }
  return statements;
}

// Each of the statements fails with that error alone.
inline void ExpectEachFails(Provider& books, std::string_view column, std::string_view good,
                            const std::string& error) {
  for (const std::string& statement : StatementsOf(column, good)) {
    EXPECT_EQ(ErrorOf([&] { (void)Lines(books, statement); }), error) << statement;
  }
}

// None of them fails.
inline void ExpectNoneFails(Provider& books, std::string_view column, std::string_view good) {
  for (const std::string& statement : StatementsOf(column, good)) {
    EXPECT_EQ(ErrorOf([&] { (void)Lines(books, statement); }), "no error") << statement;
  }
}

}  // namespace pstolvane1
