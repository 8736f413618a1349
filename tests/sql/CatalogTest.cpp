// What declared types mean, and how tables and columns are found.
#include <gtest/gtest.h>
#include <string>

#include "session/sql/Catalog.h"

namespace pstolvane1::sql {
namespace {

// "money", "text(50)", "decimal number(9,6)", "date with time"; "none" for what has no meaning.
std::string MeaningOf(std::string_view declared) {
  const auto column = ColumnOfDeclaration("c", declared);
  if (!column) return "none";
  std::string meaning(NameOf(column->type));
  if (column->size != 0) meaning += "(" + std::to_string(column->size) + ")";
  if (column->digits != 0) {
    meaning += "(" + std::to_string(column->digits) + "," + std::to_string(column->places) + ")";
  }
  if (column->date_has_time) meaning += " with time";
  return meaning;
}

TEST(DeclaredTypes, OfTheReferenceSchema) {
  EXPECT_EQ(MeaningOf("INTEGER"), "whole number");
  EXPECT_EQ(MeaningOf("BIT"), "flag");
  EXPECT_EQ(MeaningOf("REAL"), "single");
  EXPECT_EQ(MeaningOf("DECIMAL(19,4)"), "money");
  EXPECT_EQ(MeaningOf("DATE"), "date");
  EXPECT_EQ(MeaningOf("DATETIME"), "date with time");
  EXPECT_EQ(MeaningOf("VARCHAR(50)"), "text(50)");
}

TEST(DeclaredTypes, OfBooksMadeElsewhere) {
  for (const char* flag : {"bool", "Boolean", "BIT", "bit(1)"}) EXPECT_EQ(MeaningOf(flag), "flag");
  for (const char* whole : {"int", "INT(11)", "smallint", "TinyInt", "mediumint", "int4"}) {
    EXPECT_EQ(MeaningOf(whole), "whole number") << whole;
  }
  EXPECT_EQ(MeaningOf("BigInt"), "big whole number");
  EXPECT_EQ(MeaningOf("int8"), "big whole number");
  EXPECT_EQ(MeaningOf("float"), "real number");
  EXPECT_EQ(MeaningOf("FLOAT(53)"), "real number");
  EXPECT_EQ(MeaningOf("float(24)"), "single");
  EXPECT_EQ(MeaningOf("double"), "real number");
  EXPECT_EQ(MeaningOf(" Double   Precision "), "real number");
  for (const char* money :
       {"MONEY", "smallmoney", "currency", "numeric", "decimal", "NUMERIC ( 12 , 4 )"}) {
    EXPECT_EQ(MeaningOf(money), "money") << money;
  }
  EXPECT_EQ(MeaningOf("decimal(18, 6)"), "decimal number(18,6)");
  EXPECT_EQ(MeaningOf("decimal(12,2)"), "decimal number(12,2)");
  EXPECT_EQ(MeaningOf("numeric(9)"), "decimal number(9,0)");
  EXPECT_EQ(MeaningOf("numeric(12,4)"), "money");
  EXPECT_EQ(MeaningOf("timestamp"), "date with time");
  EXPECT_EQ(MeaningOf("SMALLDATETIME"), "date with time");
  EXPECT_EQ(MeaningOf("datetime2(7)"), "date with time");
  EXPECT_EQ(MeaningOf("char(3)"), "text(3)");
  EXPECT_EQ(MeaningOf("nvarchar( 255 )"), "text(255)");
  EXPECT_EQ(MeaningOf("character varying(20)"), "text(20)");
  EXPECT_EQ(MeaningOf("text"), "text");
  EXPECT_EQ(MeaningOf("CLOB"), "text");
}

TEST(DeclaredTypes, WithoutAMeaningAreLeftOut) {
  for (const char* none : {"", "BLOB", "varbinary(8)", "geometry", "in", "intx", "(19,4)"}) {
    EXPECT_EQ(MeaningOf(none), "none") << none;
  }
}

TEST(Catalog, FindsTablesAndColumnsInAnyCase) {
  CatalogTable zebra{"Zebra", {ColumnOfDeclaration("Stripe_id", "INT").value()}};
  CatalogTable ant{"ant", {}};
  const Catalog catalog({zebra, ant});
  ASSERT_NE(catalog.Find("ZEBRA"), nullptr);
  EXPECT_EQ(catalog.Find("zebra")->name, "Zebra");
  EXPECT_EQ(catalog.Find("ANT")->name, "ant");
  EXPECT_EQ(catalog.Find("zebr"), nullptr);
  EXPECT_EQ(Catalog().Find("ant"), nullptr);
  ASSERT_NE(catalog.Find("zebra")->Find("STRIPE_ID"), nullptr);
  EXPECT_EQ(catalog.Find("zebra")->Find("STRIPE_ID")->name, "Stripe_id");
  EXPECT_EQ(catalog.Find("zebra")->Find("stripe"), nullptr);
}

}  // namespace
}  // namespace pstolvane1::sql
