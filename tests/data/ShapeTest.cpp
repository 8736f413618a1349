// Shape commands opened on books small enough to be joined by hand.
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "session/data/Connection.h"
#include "session/data/Recordset.h"
#include "tests/data/FakeBooks.h"

namespace pstolvane1 {
namespace {

class ShapeTest : public testing::Test {
 protected:
  ShapeTest() {
    books_->Add("items", R"(
        item_id:int  name:text:20
        1            Bolt
        2            Nut
        3            Washer
    )");
    books_->Add("moves", R"(
        item_id:int  qty:single  rate:money  day:date
        2            10          1.5         2004-04-01
        1            5           2.25        2004-04-02
        2            -4          1.25        2004-04-03
        9            7           9           2004-04-04
        1            2.5         (null)      (null)
    )");
  }
  ~ShapeTest() override {
    connection_.reset();
    EXPECT_TRUE(AllGone(*books_));
  }

  RecordsetPtr Open(const std::string& source) {
    if (!connection_) connection_ = Connected(books_);
    RecordsetPtr rowset = Recordset::New();
    rowset->Open(source, connection_, adOpenStatic, adLockReadOnly);
    return rowset;
  }
  std::string Opened(const std::string& source) { return "\n" + Dump(*Open(source)); }
  std::string Refused(const std::string& source) {
    return Thrown([&] { (void)Open(source); });
  }

  std::shared_ptr<FakeBooks> books_ = std::make_shared<FakeBooks>();
  std::shared_ptr<Connection> connection_;
};

TEST_F(ShapeTest, AChapterHoldsTheMatchingRowsInTheirOrder) {
  EXPECT_EQ(Opened("shape {items} append ({moves} relate item_id to item_id) as chp"), R"(
item_id=1 name=Bolt
  chp: item_id=1 qty=5 rate=2.25 day=2004-04-02
  chp: item_id=1 qty=2.5 rate=(null) day=(null)
item_id=2 name=Nut
  chp: item_id=2 qty=10 rate=1.5 day=2004-04-01
  chp: item_id=2 qty=-4 rate=1.25 day=2004-04-03
item_id=3 name=Washer
)");
}

TEST_F(ShapeTest, AShapeOfOneQueryIsTheQuery) {
  EXPECT_EQ(Opened("shape {items}"), Opened("items"));
}

TEST_F(ShapeTest, AChapterIsARowsetOfItsOwn) {
  const RecordsetPtr parent =
      Open("shape {items} append ({moves} relate item_id to item_id) as chp");
  parent->MoveNext();
  const RecordsetPtr chapter = parent->Fields("CHP").Value().ToRowset();
  EXPECT_EQ(chapter->RecordCount(), 2);
  chapter->Filter("qty < 0");
  EXPECT_EQ(chapter->RecordCount(), 1);
  EXPECT_EQ(chapter->Collect("rate").ToText(), "1.25");
  chapter->MoveNext();
  EXPECT_TRUE(chapter->Eof());
  EXPECT_EQ(parent->Collect("name").ToText(), "Nut");
  EXPECT_EQ(parent->Fields("chp").Value().ToRowset()->RecordCount(), 2);
  parent->MoveNext();
  const RecordsetPtr empty = parent->Fields("chp").Value().ToRowset();
  EXPECT_TRUE(empty->Bof() && empty->Eof());
  EXPECT_EQ(empty->RecordCount(), 0);
  EXPECT_EQ(ColumnsOf(*empty), "item_id:3 qty:4 rate:6 day:7");
}

TEST_F(ShapeTest, AChapterOutlivesItsParent) {
  RecordsetPtr parent = Open("shape {items} append ({moves} relate item_id to item_id) as chp");
  const RecordsetPtr chapter = parent->Fields("chp").Value().ToRowset();
  parent->Close();
  parent.reset();
  connection_.reset();
  EXPECT_EQ(Dump(*chapter),
            "item_id=1 qty=5 rate=2.25 day=2004-04-02\n"
            "item_id=1 qty=2.5 rate=(null) day=(null)\n");
}

TEST_F(ShapeTest, SeveralKeysMustAllMatch) {
  books_->Add("stock", R"(
      item:int godown:text:9 batch:int
      1        Main          1
      1        Main          2
      1        Yard          1
  )");
  books_->Add("lines", R"(
      batch_id:int godown_name:text:9 item_id:int qty:int
      1            yard               1           10
      2            MAIN               1           20
      1            MAIN               2           30
      1            Main               1           40
      2            Main               1           50
  )");
  EXPECT_EQ(Opened("shape {stock} append ({lines} relate item to item_id, godown to godown_name, "
                   "batch to batch_id) as chp"),
            R"(
item=1 godown=Main batch=1
  chp: batch_id=1 godown_name=Main item_id=1 qty=40
item=1 godown=Main batch=2
  chp: batch_id=2 godown_name=MAIN item_id=1 qty=20
  chp: batch_id=2 godown_name=Main item_id=1 qty=50
item=1 godown=Yard batch=1
  chp: batch_id=1 godown_name=yard item_id=1 qty=10
)");
}

TEST_F(ShapeTest, NullRelatesToNothing) {
  books_->Add("p", R"(
      a:int  b:text:9
      1      x
      (null) x
      1      (null)
      (null) (null)
  )");
  books_->Add("c", R"(
      a:int  b:text:9  n:int
      (null) x         1
      1      x         2
      (null) (null)    3
      1      (null)    4
  )");
  EXPECT_EQ(Opened("shape {p} append ({c} relate a to a, b to b) as chp"), R"(
a=1 b=x
  chp: a=1 b=x n=2
a=(null) b=x
a=1 b=(null)
a=(null) b=(null)
)");
}

TEST_F(ShapeTest, NumbersRelateByValueWhateverTheirTypes) {
  books_->Add("whole", R"(
      k:int
      2
      -1
      0
  )");
  for (const std::string type : {"int", "big", "single", "double", "money"}) {
    const std::string child = "of_" + type;
    books_->Add(child, "k:" + type + " n:int\n 2 1\n 3 2\n -1 3\n 0 4\n");
    EXPECT_EQ(Opened("shape {whole} append ({" + child + "} relate k to k) as chp"), R"(
k=2
  chp: k=2 n=1
k=-1
  chp: k=-1 n=3
k=0
  chp: k=0 n=4
)") << type;
  }
}

TEST_F(ShapeTest, FractionsRelateAcrossMoneyAndDouble) {
  books_->Add("p", "k:money\n 0.1\n 1234567.8901\n 5\n");
  books_->Add("c", "k:double n:int\n 0.1 1\n 5.00001 2\n 1234567.8901 3\n 5 4\n");
  EXPECT_EQ(Opened("shape {p} append ({c} relate k to k) as chp"), R"(
k=0.1
  chp: k=0.1 n=1
k=1234567.8901
  chp: k=1234567.8901 n=3
k=5
  chp: k=5 n=4
)");
}

TEST_F(ShapeTest, AFlagIsMinusOneOrZero) {
  books_->Add("p", "k:flag\n True\n False\n");
  books_->Add("c", "k:int n:int\n -1 1\n 0 2\n 1 3\n");
  EXPECT_EQ(Opened("shape {p} append ({c} relate k to k) as chp"), R"(
k=True
  chp: k=-1 n=1
k=False
  chp: k=0 n=2
)");
}

TEST_F(ShapeTest, DatesRelateByValueAndTextsWhateverTheirCase) {
  books_->Add("p", "d:date t:text:9\n 2004-04-01 Öl\n 2004-04-01T12:00:00 STRASSE\n");
  books_->Add("c", "d:date t:text:9 n:int\n 2004-04-01 öL 1\n 2004-04-01T12:00:00 strasse 2\n");
  EXPECT_EQ(Opened("shape {p} append ({c} relate d to d) as x, ({c} relate t to t) as y"), R"(
d=2004-04-01 t=Öl
  x: d=2004-04-01 t=öL n=1
  y: d=2004-04-01 t=öL n=1
d=2004-04-01 12:00:00 t=STRASSE
  x: d=2004-04-01 12:00:00 t=strasse n=2
  y: d=2004-04-01 12:00:00 t=strasse n=2
)");
}

TEST_F(ShapeTest, ParentsWithTheSameKeyHaveTheSameRows) {
  books_->Add("p", "k:int n:int\n 1 1\n 2 2\n 1 3\n");
  books_->Add("c", "k:int v:int\n 1 10\n 1 11\n");
  EXPECT_EQ(Opened("shape {p} append ({c} relate k to k) as chp"), R"(
k=1 n=1
  chp: k=1 v=10
  chp: k=1 v=11
k=2 n=2
k=1 n=3
  chp: k=1 v=10
  chp: k=1 v=11
)");
}

TEST_F(ShapeTest, ChaptersStandSideBySideInTheirOrder) {
  books_->Add("rates", "item:int rate:money\n 3 7\n 1 8\n");
  const RecordsetPtr rowset = Open(
      "SHAPE {items} APPEND ({moves} RELATE item_id TO item_id) AS ChpTrans "
      "APPEND ({rates} RELATE item_id TO item) AS ChpRates");
  EXPECT_EQ(ColumnsOf(*rowset), "item_id:3 name:200 ChpTrans:136 ChpRates:136");
  EXPECT_EQ("\n" + Dump(*rowset), R"(
item_id=1 name=Bolt
  ChpTrans: item_id=1 qty=5 rate=2.25 day=2004-04-02
  ChpTrans: item_id=1 qty=2.5 rate=(null) day=(null)
  ChpRates: item=1 rate=8
item_id=2 name=Nut
  ChpTrans: item_id=2 qty=10 rate=1.5 day=2004-04-01
  ChpTrans: item_id=2 qty=-4 rate=1.25 day=2004-04-03
item_id=3 name=Washer
  ChpRates: item=3 rate=7
)");
}

TEST_F(ShapeTest, ANestedCommandGivesChaptersOfChapters) {
  books_->Add("documents", "voucher_id:int total:money\n 11 100\n 12 200\n");
  books_->Add("bills", "bill_id:int voucher_id:int\n 1 12\n 2 11\n 3 12\n");
  books_->Add("receipts", "bill_id:int paid:money\n 3 30\n 1 10\n 3 31\n");
  EXPECT_EQ(Opened("shape { documents }  as rsbillbybill append "
                   "(( shape {bills}  as chsalebills append ({receipts} relate bill_id to bill_id) "
                   "as chreceiptbills) relate voucher_id to voucher_id) as chsalereceiptbill"),
            R"(
voucher_id=11 total=100
  chsalereceiptbill: bill_id=2 voucher_id=11
voucher_id=12 total=200
  chsalereceiptbill: bill_id=1 voucher_id=12
    chsalereceiptbill: chreceiptbills: bill_id=1 paid=10
  chsalereceiptbill: bill_id=3 voucher_id=12
    chsalereceiptbill: chreceiptbills: bill_id=3 paid=30
    chsalereceiptbill: chreceiptbills: bill_id=3 paid=31
)");
}

TEST_F(ShapeTest, GroupsStandInTheOrderOfTheirFirstRowsWithTheChapterFirst) {
  books_->Add("sales", R"(
      itemname:text:9 item_id:int party:text:9 qty:int
      Nut             2           Rao          3
      Bolt            1           Rao          4
      nut             2           Das          5
      Nut             7           Rao          6
  )");
  const RecordsetPtr rowset =
      Open("SHAPE { sales }  AS Chap COMPUTE Chap BY 'ItemName','Item_Id' ");
  EXPECT_EQ(ColumnsOf(*rowset), "Chap:136 itemname:200 item_id:3");
  EXPECT_EQ("\n" + Dump(*rowset), R"(
itemname=Nut item_id=2
  Chap: itemname=Nut item_id=2 party=Rao qty=3
  Chap: itemname=nut item_id=2 party=Das qty=5
itemname=Bolt item_id=1
  Chap: itemname=Bolt item_id=1 party=Rao qty=4
itemname=Nut item_id=7
  Chap: itemname=Nut item_id=7 party=Rao qty=6
)");
}

TEST_F(ShapeTest, GroupsTakeNullAsOneValue) {
  books_->Add("sales", "k:int n:int\n (null) 1\n 5 2\n (null) 3\n");
  EXPECT_EQ(Opened("shape {sales} as c compute c by k"), R"(
k=(null)
  c: k=(null) n=1
  c: k=(null) n=3
k=5
  c: k=5 n=2
)");
}

TEST_F(ShapeTest, GroupColumnsKeepTypeAndSize) {
  const RecordsetPtr rowset = Open("shape {items} as c compute c by name");
  EXPECT_EQ(rowset->Fields("name").DefinedSize(), 20);
  EXPECT_EQ(rowset->Fields("name").Type(), adVarChar);
}

TEST_F(ShapeTest, NoRowsGiveNoGroups) {
  books_->Add("none", "k:int v:money\n");
  EXPECT_EQ(Opened("shape {none} as c compute c, sum(c.v) as s by k"), "\n");
}

TEST_F(ShapeTest, WithoutByAllRowsAreOneGroup) {
  EXPECT_EQ(Opened("shape {items} as c compute c, count(c) as n, max(c.name) as last"), R"(
n=3 last=Washer
  c: item_id=1 name=Bolt
  c: item_id=2 name=Nut
  c: item_id=3 name=Washer
)");
  books_->Add("none", "k:int v:money\n");
  EXPECT_EQ(Opened("shape {none} as c compute c, count(c) as n, sum(c.v) as s, any(c.k) as a"), R"(
n=0 s=(null) a=(null)
)");
}

TEST_F(ShapeTest, AggregatesOfEveryTypeByHand) {
  books_->Add("t", R"(
      g:int whole:int big:big          single:single double:double money:money day:date   text:text flag:flag
      1     7         5000000000       1.5           0.25          10.0001     2004-04-02 beta      True
      1     (null)    (null)           (null)        (null)        (null)      (null)     (null)    (null)
      1     -2        1                2.25          0.5           0.0002      2004-04-01 Alpha     False
      1     8         2                -1            1             -3          2005-01-01 alpha     True
      2     (null)    (null)           (null)        (null)        (null)      (null)     (null)    (null)
  )");
  const RecordsetPtr sums = Open(
      "shape {t} as c compute sum(c.whole) as w, sum(c.big) as b, sum(c.single) as s, "
      "sum(c.double) as d, sum(c.money) as m by g");
  EXPECT_EQ(ColumnsOf(*sums), "w:20 b:20 s:5 d:5 m:6 g:3");
  EXPECT_EQ("\n" + Dump(*sums), R"(
w=13 b=5000000003 s=2.75 d=1.75 m=7.0003 g=1
w=(null) b=(null) s=(null) d=(null) m=(null) g=2
)");
  const RecordsetPtr averages = Open(
      "shape {t} as c compute avg(c.whole) as w, avg(c.big) as b, avg(c.single) as s, "
      "avg(c.double) as d, avg(c.money) as m by g");
  EXPECT_EQ(ColumnsOf(*averages), "w:5 b:5 s:5 d:5 m:6 g:3");
  EXPECT_EQ(averages->Collect("w").ToDouble(), 13.0 / 3);
  EXPECT_EQ(averages->Collect("b").ToDouble(), 5000000003.0 / 3);
  EXPECT_EQ(averages->Collect("s").ToDouble(), 2.75 / 3);
  EXPECT_EQ(averages->Collect("d").ToDouble(), 1.75 / 3);
  EXPECT_EQ(averages->Collect("m").ToText(), "2.3334");
  averages->MoveNext();
  EXPECT_TRUE(averages->Collect("m").IsNull());
  const RecordsetPtr least = Open(
      "shape {t} as c compute min(c.whole) as w, min(c.big) as b, min(c.single) as s, "
      "min(c.double) as d, min(c.money) as m, min(c.day) as y, min(c.text) as t by g");
  EXPECT_EQ(ColumnsOf(*least), "w:3 b:20 s:4 d:5 m:6 y:7 t:200 g:3");
  EXPECT_EQ("\n" + Dump(*least), R"(
w=-2 b=1 s=-1 d=0.25 m=-3 y=2004-04-01 t=Alpha g=1
w=(null) b=(null) s=(null) d=(null) m=(null) y=(null) t=(null) g=2
)");
  EXPECT_EQ(Opened("shape {t} as c compute max(c.whole) as w, max(c.big) as b, max(c.single) as s, "
                   "max(c.double) as d, max(c.money) as m, max(c.day) as y, max(c.text) as t by g"),
            R"(
w=8 b=5000000000 s=2.25 d=1 m=10.0001 y=2005-01-01 t=beta g=1
w=(null) b=(null) s=(null) d=(null) m=(null) y=(null) t=(null) g=2
)");
  const RecordsetPtr counts = Open(
      "shape {t} as c compute count(c) as n, count(c.whole) as w, count(c.text) as t, "
      "any(c.text) as a, any(c.flag) as f by g");
  EXPECT_EQ(ColumnsOf(*counts), "n:3 w:3 t:3 a:200 f:11 g:3");
  EXPECT_EQ("\n" + Dump(*counts), R"(
n=4 w=3 t=3 a=beta f=True g=1
n=1 w=0 t=0 a=(null) f=(null) g=2
)");
}

TEST_F(ShapeTest, DatesBeforeTheFirstDayAreOrderedByTime) {
  // The same day before 30 December 1899, at 06:00 and at 18:00: serials -1.25 and -1.75.
  books_->Add("t", "d:date\n 1899-12-29T18:00:00\n 1899-12-29T06:00:00\n");
  EXPECT_EQ(Opened("shape {t} as c compute min(c.d) as early, max(c.d) as late"), R"(
early=1899-12-29 06:00:00 late=1899-12-29 18:00:00
)");
}

TEST_F(ShapeTest, ASumBeyondItsTypeIsAnOverflow) {
  books_->Add("t",
              "m:money b:big w:int\n 922337203685477.5807 9223372036854775807 2147483647\n"
              "0.0001 1 2147483647\n");
  EXPECT_EQ(Refused("shape {t} as c compute sum(c.m) as s"),
            "6: SUM of m is beyond the largest number of its type");
  EXPECT_EQ(Refused("shape {t} as c compute sum(c.b) as s"),
            "6: SUM of b is beyond the largest number of its type");
  EXPECT_EQ(Opened("shape {t} as c compute sum(c.w) as s"), "\ns=4294967294\n");
}

TEST_F(ShapeTest, AggregatesOfAnAppendedChapterStandInTheParentsRow) {
  const RecordsetPtr rowset = Open(
      "shape {items} append ({moves} relate item_id to item_id) as chp, sum(chp.qty) as total, "
      "count(chp) as lines, max(chp.rate) as best");
  EXPECT_EQ(ColumnsOf(*rowset), "item_id:3 name:200 chp:136 total:5 lines:3 best:6");
  EXPECT_EQ("\n" + Dump(*rowset), R"(
item_id=1 name=Bolt total=7.5 lines=2 best=2.25
  chp: item_id=1 qty=5 rate=2.25 day=2004-04-02
  chp: item_id=1 qty=2.5 rate=(null) day=(null)
item_id=2 name=Nut total=6 lines=2 best=1.5
  chp: item_id=2 qty=10 rate=1.5 day=2004-04-01
  chp: item_id=2 qty=-4 rate=1.25 day=2004-04-03
item_id=3 name=Washer total=(null) lines=0 best=(null)
)");
}

TEST_F(ShapeTest, GroupsCanHaveChaptersAndBeChapters) {
  EXPECT_EQ(Opened("shape (shape {moves} as c compute c, sum(c.qty) as qty by item_id) "
                   "append ({items} relate item_id to item_id) as item"),
            R"(
qty=6 item_id=2
  c: item_id=2 qty=10 rate=1.5 day=2004-04-01
  c: item_id=2 qty=-4 rate=1.25 day=2004-04-03
  item: item_id=2 name=Nut
qty=7.5 item_id=1
  c: item_id=1 qty=5 rate=2.25 day=2004-04-02
  c: item_id=1 qty=2.5 rate=(null) day=(null)
  item: item_id=1 name=Bolt
qty=7 item_id=9
  c: item_id=9 qty=7 rate=9 day=2004-04-04
)");
  EXPECT_EQ(Opened("shape {items} append ((shape {moves} as c compute sum(c.qty) as qty by "
                   "item_id) relate item_id to item_id) as sums"),
            R"(
item_id=1 name=Bolt
  sums: qty=7.5 item_id=1
item_id=2 name=Nut
  sums: qty=6 item_id=2
item_id=3 name=Washer
)");
}

TEST_F(ShapeTest, GroupsOverJoinedRowsKeepTheirChapters) {
  EXPECT_EQ(Opened("shape (shape {items} append ({moves} relate item_id to item_id) as m, "
                   "count(m) as n) as rows1 compute rows1 by n"),
            R"(
n=2
  rows1: item_id=1 name=Bolt n=2
    rows1: m: item_id=1 qty=5 rate=2.25 day=2004-04-02
    rows1: m: item_id=1 qty=2.5 rate=(null) day=(null)
  rows1: item_id=2 name=Nut n=2
    rows1: m: item_id=2 qty=10 rate=1.5 day=2004-04-01
    rows1: m: item_id=2 qty=-4 rate=1.25 day=2004-04-03
n=0
  rows1: item_id=3 name=Washer n=0
)");
}

TEST_F(ShapeTest, EveryQueryRunsOnceOnOneState) {
  (void)Open("shape {items} append ({moves} relate item_id to item_id) as a");
  EXPECT_EQ(books_->runs, (std::map<std::string, int>{{"items", 1}, {"moves", 1}}));
  EXPECT_EQ(books_->snapshots_taken, 1);
}

struct Refusal {
  const char* situation;
  const char* source;
  const char* error;
};

TEST_F(ShapeTest, WhatCannotBeJoinedIsRefusedWithItsPlace) {
  books_->Add("texts", "t:text:9 d:date f:flag item_id:int\n");
  for (const Refusal& refusal : {
           Refusal{"column not in the parent",
                   "shape {items} append ({moves} relate item to item_id) as chp",
                   "line 1, column 38: the parent has no column item, only item_id, name"},
           Refusal{"column not in the chapter",
                   "shape {items} append\n ({moves} relate item_id to item) as chp",
                   "line 2, column 29: the chapter's query has no column item, only item_id, qty, "
                   "rate, day"},
           Refusal{"number and text", "shape {items} append ({texts} relate item_id to t) as chp",
                   "line 1, column 38: item_id is a number and t is a text: they cannot be "
                   "related"},
           Refusal{"text and date", "shape {items} append ({texts} relate name to d) as chp",
                   "line 1, column 38: name is a text and d is a date: they cannot be related"},
           Refusal{"key is a chapter",
                   "shape {items} append ({moves} relate item_id to item_id) as a, "
                   "({moves} relate a to item_id) as b",
                   "line 1, column 80: a is a chapter and item_id is a number: they cannot be "
                   "related"},
           Refusal{"chapter has a column's name",
                   "shape {items} append ({moves} relate item_id to item_id) as NAME",
                   "line 1, column 61: a column NAME is there already: give another name with AS"},
           Refusal{"two aggregates without names",
                   "shape {moves} as c compute c, sum(c.qty), sum(c.rate) by item_id",
                   "line 1, column 43: a column SUM is there already: give another name with AS"},
           Refusal{"group column not there", "shape {items} as c compute c by size",
                   "line 1, column 33: the rows have no column size, only item_id, name"},
           Refusal{"group by a chapter",
                   "shape (shape {items} append ({moves} relate item_id to item_id) as m) as c "
                   "compute c by m",
                   "line 1, column 89: m is a chapter: it cannot be grouped by"},
           Refusal{"sum of a text", "shape {items} as c compute sum(c.name) as s",
                   "line 1, column 34: SUM does not take a text, as name is"},
           Refusal{"average of a date", "shape {texts} as c compute avg(c.d) as s",
                   "line 1, column 34: AVG does not take a date, as d is"},
           Refusal{"least of flags", "shape {texts} as c compute min(c.f) as s",
                   "line 1, column 34: MIN does not take a flag, as f is"},
           Refusal{"count of a chapter",
                   "shape (shape {items} append ({moves} relate item_id to item_id) as m) as c "
                   "compute count(c.m) as n",
                   "line 1, column 92: COUNT does not take a chapter, as m is"},
           Refusal{"aggregate of a column not there", "shape {items} as c compute sum(c.qty) as s",
                   "line 1, column 34: c has no column qty, only item_id, name"},
           Refusal{"first query refused", "shape { nowhere }",
                   "while reading the query of the shape command: line 1, column 9: there is no "
                   "table nowhere"},
           Refusal{"query of a chapter refused",
                   "shape {items} append (\n{ nowhere } relate item_id to item_id) as chp",
                   "while reading the query of chp: line 2, column 3: there is no table nowhere"},
           Refusal{"query of grouped rows refused", "shape {nowhere} as chap compute chap by k",
                   "while reading the query of chap: line 1, column 8: there is no table nowhere"},
       }) {
    EXPECT_EQ(Refused(refusal.source), std::string("-2147217900: ") + refusal.error)
        << refusal.situation;
  }
  EXPECT_TRUE(books_->runs.empty()) << "what is refused is refused before anything runs";
}

TEST_F(ShapeTest, AFailureWhileReadingNamesTheChapter) {
  books_->AddNumbers("many", 10'000).fails_at = 9'000;
  EXPECT_EQ(Refused("shape {items} append ({many} relate item_id to n) as chp"),
            "-2147217900: while reading the query of chp: row 9000 is damaged");
}

TEST_F(ShapeTest, RowsBeyondOneChunkAreJoined) {
  books_->AddNumbers("parents", 9'000);
  books_->AddNumbers("children", 20'000);
  const RecordsetPtr rowset =
      Open("shape {parents} append ({children} relate n to n) as chp, any(chp.t) as text");
  EXPECT_EQ(rowset->RecordCount(), 9'000);
  const ColumnHandle n = rowset->Column("n");
  const ColumnHandle chapter = rowset->Column("chp");
  for (; !rowset->Eof(); rowset->MoveNext()) {
    const RecordsetPtr child = rowset->Chapter(chapter);
    ASSERT_EQ(child->RecordCount(), 1);
    ASSERT_EQ(child->Collect("n").ToInt32(), rowset->Int32(n));
    ASSERT_EQ(rowset->Collect("text").ToText(), "row " + std::to_string(rowset->Int32(n)));
  }
}

}  // namespace
}  // namespace pstolvane1
