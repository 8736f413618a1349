// A value that the server takes and the dialect has not fails every statement that touches it.
#include <gmock/gmock.h>

#include "session/engine/postgres/ColumnCheck.h"
#include "session/engine/postgres/PostgresProvider.h"
#include "tests/engine/SameExit.h"
#include "tests/engine/WrongValues.h"
#include "tests/server/Server.h"

namespace pstolvane1::postgres {
namespace {

using testing::ElementsAre;

TEST(ServerWrongValues, FailEveryStatementThatTouchesTheColumn) {
  for (const auto& [column, good, stored, error] :
       {std::tuple{"qty", "5", "NaN", "13 t.qty holds \"NaN\", which is not a number"},
        {"qty", "5", "Infinity", "13 t.qty holds \"Infinity\", which is not a number"},
        {"rate", "2.5", "NaN", "13 t.rate holds \"NaN\", which is not an amount of money"},
        {"weight", "1.25", "NaN", "13 t.weight holds \"NaN\", which is not a number"},
        {"share", "0.5", "-Infinity", "13 t.share holds \"-Infinity\", which is not a number"},
        {"day", "'2004-03-31'", "10000-01-01",
         "13 t.day holds \"10000-01-01\", which is not a date"},
        {"day", "'2004-03-31'", "0099-12-31", "13 t.day holds \"0099-12-31\", which is not a date"},
        {"day", "'2004-03-31'", "infinity", "13 t.day holds \"infinity\", which is not a date"},
        {"moment", "'2004-03-31'", "10000-01-01 05:00",
         "13 t.moment holds \"10000-01-01 05:00:00\", which is not a date"}}) {
    Scratch scratch(kTableInOrder);
    PostgresProvider provider(scratch.ConnectionString(), kNoLimit);
    ExpectNoneFails(provider, column, good);
    scratch.Run(std::string("UPDATE t SET ") + column + " = '" + stored + "' WHERE id = 2");
    ExpectEachFails(provider, column, good, error);
    EXPECT_THAT(Lines(provider, "SELECT id FROM t ORDER BY id"), ElementsAre("1", "2"));
    scratch.Run(std::string("UPDATE t SET ") + column + " = NULL WHERE id = 2");
    ExpectNoneFails(provider, column, good);
  }
}

TEST(ServerWrongValues, AreThoseOfTheStateThatIsRead) {
  Scratch scratch("CREATE TABLE t (id int, qty float8); INSERT INTO t VALUES (1, 5)");
  PostgresProvider provider(scratch.ConnectionString(), kNoLimit);
  const auto before = provider.TakeSnapshot(kNoLimit);
  scratch.Run("UPDATE t SET qty = 'NaN'");
  EXPECT_EQ(ErrorOf([&] { (void)Lines(provider, "SELECT sum(qty) AS s FROM t"); }),
            "13 t.qty holds \"NaN\", which is not a number");
  EXPECT_THAT(Lines(*before, "SELECT sum(qty) AS s FROM t"), ElementsAre("5"));
}

TEST(ServerWrongValues, AreLookedForOnceInAStateOfTheBooks) {
  const sql::CatalogTable table{.name = "t", .columns = {{"a"}, {"b"}}, .schema = "s"};
  const NamedColumn a(&table, &table.columns[0]);
  const NamedColumn b(&table, &table.columns[1]);
  const std::vector<NamedColumn> both{a, b};
  SoundColumns sound;
  EXPECT_THAT(sound.Unknown("1", both), ElementsAre(a, b));
  sound.Remember("1", std::vector<NamedColumn>{a});
  EXPECT_THAT(sound.Unknown("1", both), ElementsAre(b));
  EXPECT_THAT(sound.Unknown("2", both), ElementsAre(a, b)) << "another state";
  sound.Remember("2", std::vector<NamedColumn>{b});
  EXPECT_THAT(sound.Unknown("2", both), ElementsAre(a));
  EXPECT_THAT(sound.Unknown("1", both), ElementsAre(a, b)) << "only the last state is known";
}

// The word for a state stays as long as nobody writes to the server.
TEST(ServerWrongValues, AStateThatNobodyHasChangedIsKnownAgain) {
  Scratch scratch("CREATE TABLE t (id int, qty float8); INSERT INTO t VALUES (1, 5)");
  PostgresProvider provider(scratch.ConnectionString(), kNoLimit);
  const std::string text = "SELECT pg_current_snapshot()::text";
  const std::string before = scratch.Run(text);
  EXPECT_THAT(Lines(provider, "SELECT sum(qty) AS s FROM t"), ElementsAre("5"));
  EXPECT_EQ(scratch.Run(text), before) << "a report takes no part in the server's transactions";
}

TEST(SameExit, OfAServer) {
  const Scratch scratch(kTablesOfSameExit);
  PostgresProvider provider(scratch.ConnectionString(), kNoLimit);
  ExpectSameExits(provider);
}

}  // namespace
}  // namespace pstolvane1::postgres
