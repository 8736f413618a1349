// Rowsets as Arrow streams, read by a consumer that knows the published layout and nothing else.
#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "automation/CRowset.h"
#include "automation/pstolvane1_arrow.h"
#include "session/clsStolvane1.h"
#include "tests/automation/SampleCompany.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1::automation {
namespace {

template <typename Structure>
struct Released {
  Structure value{};
  Released() = default;
  Released(const Released&) = delete;
  Released& operator=(const Released&) = delete;
  ~Released() {
    if (value.release != nullptr) value.release(&value);
  }
  Structure* operator->() { return &value; }
};
using Schema = Released<ArrowSchema>;
using Array = Released<ArrowArray>;
using Stream = Released<ArrowArrayStream>;

bool Bit(const void* bits, std::int64_t number) {
  return (static_cast<const std::uint8_t*>(bits)[number / 8] >> (number % 8) & 1) != 0;
}
template <typename T>
T At(const ArrowArray& array, int buffer, std::int64_t number) {
  T value;
  std::memcpy(&value, static_cast<const T*>(array.buffers[buffer]) + number, sizeof value);
  return value;
}

// A cell as text; what is wrong with its array is a failure.
std::string Cell(const ArrowSchema& schema, const ArrowArray& array, std::int64_t row) {
  const std::string format = schema.format;
  EXPECT_EQ(array.offset, 0);
  EXPECT_EQ(array.dictionary, nullptr);
  EXPECT_EQ(array.n_children, schema.n_children);
  if (format == "+s") {
    EXPECT_EQ(array.n_buffers, 1);
    std::string all;
    for (std::int64_t i = 0; i < array.n_children; ++i) {
      EXPECT_EQ(array.children[i]->length, array.length);
      all += (i == 0 ? "" : ",") + Cell(*schema.children[i], *array.children[i], row);
    }
    return "{" + all + "}";
  }
  EXPECT_EQ(array.n_buffers, format == "u" ? 3 : 2);
  if (!Bit(array.buffers[0], row)) return "null";
  if (format == "i" || format == "tdD") return std::to_string(At<std::int32_t>(array, 1, row));
  if (format == "l") return std::to_string(At<std::int64_t>(array, 1, row));
  if (format == "f") return std::to_string(At<float>(array, 1, row));
  if (format == "g") return std::to_string(At<double>(array, 1, row));
  if (format == "b") return Bit(array.buffers[1], row) ? "true" : "false";
  if (format == "d:19,4") {
    const auto low = At<std::int64_t>(array, 1, 2 * row);
    EXPECT_EQ(At<std::int64_t>(array, 1, 2 * row + 1), low < 0 ? -1 : 0);
    return Currency::FromTenThousandths(low).ToText();
  }
  const auto begin = At<std::int32_t>(array, 1, row), end = At<std::int32_t>(array, 1, row + 1);
  if (format == "u") {
    return std::string(static_cast<const char*>(array.buffers[2]) + begin,
                       static_cast<const char*>(array.buffers[2]) + end);
  }
  EXPECT_EQ(format, "+l");
  EXPECT_STREQ(schema.children[0]->name, "item");
  std::string all;
  for (std::int32_t i = begin; i < end; ++i) {
    all += Cell(*schema.children[0], *array.children[0], i);
  }
  return "[" + all + "]";
}

// "name:format" of each column.
std::string Columns(const ArrowSchema& schema) {
  std::string all;
  for (std::int64_t i = 0; i < schema.n_children; ++i) {
    const ArrowSchema& column = *schema.children[i];
    EXPECT_EQ(column.flags, ARROW_FLAG_NULLABLE);
    EXPECT_EQ(column.metadata, nullptr);
    all += (i == 0 ? "" : " ") + std::string(column.name) + ":" + column.format;
  }
  return all;
}

class ArrowStreams : public testing::Test {
 protected:
  void Read(RecordsetPtr rowset) {
    pst_rowset* handle = HandOver(std::move(rowset));
    EXPECT_EQ(pst_rowset_arrow(handle, &stream_.value), pst_ok) << pst_error_text();
    pst_rowset_free(handle);  // the stream needs it no longer
    EXPECT_EQ(stream_->get_schema(&stream_.value, &schema_.value), 0);
    EXPECT_STREQ(schema_->format, "+s");
  }
  // The next batch's rows; none at the end.
  std::vector<std::string> Batch() {
    Array batch;
    EXPECT_EQ(stream_->get_next(&stream_.value, &batch.value), 0);
    EXPECT_EQ(stream_->get_last_error(&stream_.value), nullptr);
    std::vector<std::string> rows;
    if (batch->release == nullptr) return rows;
    EXPECT_EQ(batch->null_count, 0);
    for (std::int64_t i = 0; i < batch->length; ++i) {
      rows.push_back(Cell(schema_.value, batch.value, i));
    }
    return rows;
  }

  Stream stream_;
  Schema schema_;
};

using Rows = std::vector<std::string>;

TEST_F(ArrowStreams, CarryEveryType) {
  const Variant min_money(Currency::FromTenThousandths(std::numeric_limits<std::int64_t>::min()));
  Read(MakeRowset({{"whole", adInteger},
                   {"big", adBigInt},
                   {"single", adSingle},
                   {"double", adDouble},
                   {"money", adCurrency},
                   {"day", adDate},
                   {"flag", adBoolean},
                   {"text", adVarChar},
                   {"long", adBSTR}},
                  {{Variant(7), Variant(std::int64_t{1} << 40), Variant(0.5F), Variant(-2.25),
                    Variant(Currency::FromTenThousandths(-15000)),
                    Variant(Date::FromYmd(2004, 4, 1)), Variant(True), Variant("Ä"), Variant("")},
                   {Variant(Null), Variant(Null), Variant(Null), Variant(Null), Variant(Null),
                    Variant(Null), Variant(Null), Variant(Null), Variant(Null)},
                   {Variant(-1), Variant(-1), Variant(0.0F), Variant(0.0), min_money,
                    // The evening before the calendar of spreadsheets begins.
                    Variant(Date(-1.75)), Variant(False), Variant("two\nlines"), Variant("x")}}));
  EXPECT_EQ(Columns(schema_.value),
            "whole:i big:l single:f double:g money:d:19,4 day:tdD flag:b text:u long:u");
  EXPECT_EQ(Batch(),
            (Rows{"{7,1099511627776,0.500000,-2.250000,-1.5000,12509,true,Ä,}",
                  "{null,null,null,null,null,null,null,null,null}",
                  "{-1,-1,0.000000,0.000000,-922337203685477.5808,-25570,false,two\nlines,x}"}));
  EXPECT_EQ(Batch(), Rows{});
  EXPECT_EQ(Batch(), Rows{});
}

TEST_F(ArrowStreams, CountTheNullsOfEachColumn) {
  Read(MakeRowset({{"a", adInteger}, {"b", adVarChar}},
                  {{Variant(1), Variant(Null)}, {Variant(Null), Variant(Null)}}));
  Array batch;
  ASSERT_EQ(stream_->get_next(&stream_.value, &batch.value), 0);
  EXPECT_EQ(batch->children[0]->null_count, 1);
  EXPECT_EQ(batch->children[1]->null_count, 2);
}

TEST_F(ArrowStreams, OfAnEmptyRowsetHaveColumnsAndNoBatch) {
  Read(MakeRowset({{"a", adInteger}}, {}));
  EXPECT_EQ(Columns(schema_.value), "a:i");
  EXPECT_EQ(Batch(), Rows{});
}

TEST_F(ArrowStreams, ShowWhatTheRowsetShows) {
  const RecordsetPtr rowset =
      MakeRowset({{"n", adInteger}}, {{Variant(3)}, {Variant(1)}, {Variant(2)}});
  rowset->Filter("n > 1");
  rowset->Sort("n");
  Read(rowset);
  EXPECT_EQ(Batch(), (Rows{"{2}", "{3}"}));
}

TEST_F(ArrowStreams, CarryAMillionRows) {
  const RecordsetPtr rowset = Recordset::New();
  rowset->Fields().Append("n", adBigInt);
  rowset->Fields().Append("text", adVarChar, 20);
  rowset->Open();
  constexpr std::int64_t kMany = 1'000'000;
  for (std::int64_t i = 0; i < kMany; ++i) {
    rowset->AddNew();
    rowset->Set(ColumnHandle{0}, Variant(i));
    if (i % 3 == 0) rowset->SetText(ColumnHandle{1}, std::to_string(i));
    rowset->Update();
  }
  Read(rowset);
  std::int64_t read = 0, wrong = 0;
  for (;;) {
    Array batch;
    ASSERT_EQ(stream_->get_next(&stream_.value, &batch.value), 0);
    if (batch->release == nullptr) break;
    const ArrowArray& numbers = *batch->children[0];
    const ArrowArray& texts = *batch->children[1];
    for (std::int64_t i = 0; i < batch->length; ++i, ++read) {
      const bool has_text = Bit(texts.buffers[0], i);
      const auto begin = At<std::int32_t>(texts, 1, i), end = At<std::int32_t>(texts, 1, i + 1);
      const std::string text(static_cast<const char*>(texts.buffers[2]) + begin,
                             static_cast<const char*>(texts.buffers[2]) + end);
      if (At<std::int64_t>(numbers, 1, i) != read || has_text != (read % 3 == 0) ||
          text != (has_text ? std::to_string(read) : "")) {
        ++wrong;
      }
    }
  }
  EXPECT_EQ(read, kMany);
  EXPECT_EQ(wrong, 0);
}

TEST_F(ArrowStreams, CarryChaptersAsListsOfStructs) {
  const SampleCompany company;
  clsStolvane1 session;
  session.SetConnection("", "", company.File(), False);
  const RecordsetPtr rowset = Recordset::New();
  rowset->Open(
      "SHAPE {select Ledger_id, LedgerName from LedgerNames1 order by Ledger_id} APPEND ({select "
      "Ledger_id, Desr_id, TotalAmount from Desr1} AS bills RELATE Ledger_id TO Ledger_id)",
      session.GetConnectionObject());
  Read(rowset);
  EXPECT_EQ(Columns(schema_.value), "Ledger_id:i LedgerName:u bills:+l");
  EXPECT_EQ(Columns(*schema_->children[2]->children[0]),
            "Ledger_id:i Desr_id:i TotalAmount:d:19,4");
  EXPECT_EQ(Batch(), (Rows{"{1,Asha Motors,[{1,2,250.0000}]}",
                           "{2,Bharat Traders,[{2,1,1500.5000}]}", "{3,Never listed,[]}"}));
}

TEST_F(ArrowStreams, GiveColumnsAwayOneByOne) {
  Read(MakeRowset({{"a", adInteger}, {"b", adInteger}}, {{Variant(1), Variant(2)}}));
  ArrowArray taken{};
  {
    Array batch;
    ASSERT_EQ(stream_->get_next(&stream_.value, &batch.value), 0);
    taken = *batch->children[1];
    batch->children[1]->release = nullptr;
  }
  EXPECT_EQ(At<std::int32_t>(taken, 1, 0), 2);
  std::thread([&] { taken.release(&taken); }).join();
  EXPECT_EQ(taken.release, nullptr);
}

TEST_F(ArrowStreams, BelongToTheirThread) {
  Read(MakeRowset({{"a", adInteger}}, {{Variant(1)}}));
  int status = 0;
  std::thread([&] {
    Array batch;
    status = stream_->get_next(&stream_.value, &batch.value);
    EXPECT_EQ(batch->release, nullptr);
  }).join();
  EXPECT_EQ(status, EINVAL);
  EXPECT_STREQ(stream_->get_last_error(&stream_.value),
               "the stream belongs to the thread that has its rowset");
  EXPECT_EQ(Batch(), Rows{"{1}"});
}

TEST_F(ArrowStreams, KeepTheLibraryLoaded) {
  Read(MakeRowset({{"a", adInteger}}, {{Variant(1)}}));
  Array batch;
  ASSERT_EQ(stream_->get_next(&stream_.value, &batch.value), 0);
  schema_->release(&schema_.value);
  stream_->release(&stream_.value);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_false);
  batch->release(&batch.value);
  EXPECT_EQ(DllCanUnloadNow(), pst_s_ok);
}

TEST_F(ArrowStreams, RefuseWhatIsNoRowset) {
  EXPECT_EQ(pst_rowset_arrow(nullptr, &stream_.value), 91);
  EXPECT_EQ(stream_->release, nullptr);
  pst_rowset* handle = HandOver(MakeRowset({{"a", adInteger}}, {}));
  EXPECT_EQ(pst_rowset_arrow(handle, nullptr), 91);
  EXPECT_STREQ(pst_error_text(), "no place for the stream was given");
  pst_rowset_free(handle);
}

}  // namespace
}  // namespace pstolvane1::automation
