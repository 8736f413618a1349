// Random work on a rowset and its clones, against plain vectors of rows that do it the slow way.
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <random>

#include "session/data/TextFold.h"
#include "tests/data/ExpectError.h"
#include "tests/data/MakeRowset.h"

namespace pstolvane1 {
namespace {

// The rows as everybody sees them. Null is no value.
struct ModelRow {
  std::optional<int> number;
  std::optional<std::string> text;
  std::optional<std::int64_t> money;  // ten-thousandths
  bool deleted = false;
  bool pending = false;
};

struct Criterion {
  std::string text;
  std::function<bool(const ModelRow&)> meets;
};

struct Order {
  std::string text;
  std::function<int(const ModelRow&, const ModelRow&)> compare;
};

constexpr int kNoRow = -1;

// One rowset of the model. A view is worked out anew at every question; what makes that the same as
// following changes one by one is the rule for rows in edit: they keep the place that they had.
struct ModelView {
  std::vector<ModelRow>* rows;
  Criterion filter;
  Order order;
  enum { kBof, kOn, kEof } stand = kEof;
  int row = kNoRow;
  int adding = kNoRow;
  // The rows that it has noticed, as they were then: an edit is noticed at its update.
  std::vector<ModelRow> known;
  std::vector<bool> knows;

  void Learn(int number) {
    const auto at = static_cast<std::size_t>(number);
    if (known.size() <= at) {
      known.resize(at + 1);
      knows.resize(at + 1);
    }
    known[at] = (*rows)[at];
    knows[at] = true;
  }
  void LearnAll() {
    for (std::size_t i = 0; i < rows->size(); ++i) {
      if (!(*rows)[i].pending) Learn(static_cast<int>(i));
    }
  }

  bool Shows(int number) const {
    const auto at = static_cast<std::size_t>(number);
    const ModelRow& row_now = (*rows)[at];
    return !row_now.deleted && !row_now.pending && at < knows.size() && knows[at] &&
           (!filter.meets || filter.meets(known[at]));
  }
  // a stands before b.
  bool Before(int a, int b) const {
    if (order.compare) {
      const int by_value =
          order.compare(known[static_cast<std::size_t>(a)], known[static_cast<std::size_t>(b)]);
      if (by_value != 0) return by_value < 0;
    }
    return a < b;
  }
  std::vector<int> Visible() const {
    std::vector<int> visible;
    for (int i = 0; i < static_cast<int>(rows->size()); ++i) {
      if (Shows(i)) visible.push_back(i);
    }
    std::sort(visible.begin(), visible.end(), [&](int a, int b) { return Before(a, b); });
    return visible;
  }
  bool HasRow() const {
    if (stand != kOn) return false;
    const ModelRow& now = (*rows)[static_cast<std::size_t>(row)];
    return !now.deleted && (!now.pending || row == adding);
  }
};

int CompareOptional(const auto& a, const auto& b, auto compare) {
  if (!a || !b) return static_cast<int>(a.has_value()) - static_cast<int>(b.has_value());
  return compare(*a, *b);
}

int CompareNumbers(std::int64_t a, std::int64_t b) {
  return static_cast<int>(a > b) - static_cast<int>(a < b);
}

class RecordsetModel : public testing::TestWithParam<int> {
 protected:
  static constexpr int kTexts = 6;
  static const char* TextOf(int i) {
    static const char* const kAll[kTexts] = {"Bolt", "bolt", "Nut", "", "Äpfel", "äPFEL"};
    return kAll[i];
  }

  int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

  void Start(bool optimize) {
    rowsets_ = {MakeRowset({{"Number", adInteger}, {"Text", adBSTR}, {"Money", adCurrency}}, {})};
    views_.clear();
    views_.push_back(NewView());
    if (optimize) {
      rowsets_[0]->Fields("Number").Properties()("Optimize") = true;
      rowsets_[0]->Fields("Text").Properties()("Optimize") = true;
    }
  }

  std::unique_ptr<ModelView> NewView() {
    auto view = std::make_unique<ModelView>();
    view->rows = &rows_;
    view->LearnAll();
    First(*view);
    return view;
  }

  static void First(ModelView& view) {
    const auto visible = view.Visible();
    view.stand = visible.empty() ? ModelView::kEof : ModelView::kOn;
    if (!visible.empty()) view.row = visible.front();
  }

  Criterion RandomCriterion() {
    const int kind = Pick(7);
    const int n = Pick(5) - 1;
    const std::string number = std::to_string(n);
    const std::string text = TextOf(Pick(kTexts));
    const auto equals = [=](const ModelRow& row) { return row.number && *row.number == n; };
    const auto says = [=](const ModelRow& row) {
      return row.text && CompareFolded(*row.text, text) == 0;
    };
    switch (kind) {
      case 0:
        return {"", nullptr};
      case 1:
        return {"Number = " + number, equals};
      case 2:
        return {"Text = '" + text + "'", says};
      case 3:
        return {"Number = " + number + " And Text = '" + text + "'",
                [=](const ModelRow& row) { return equals(row) && says(row); }};
      case 4:
        return {"Text = '" + text + "' Or Number = " + number,
                [=](const ModelRow& row) { return equals(row) || says(row); }};
      case 5:
        return {"Not (Money > " + number + " And Number <> Null)", [=](const ModelRow& row) {
                  // A comparison with Null is met neither way.
                  return (row.money && *row.money <= n * 10000) || !row.number;
                }};
      default:
        return {"Number >= " + number,
                [=](const ModelRow& row) { return row.number && *row.number >= n; }};
    }
  }

  Order RandomOrder() {
    const auto by_number = [](const ModelRow& a, const ModelRow& b) {
      return CompareOptional(a.number, b.number, CompareNumbers);
    };
    const auto by_text = [](const ModelRow& a, const ModelRow& b) {
      return CompareOptional(a.text, b.text, CompareFolded);
    };
    const auto by_money = [](const ModelRow& a, const ModelRow& b) {
      return CompareOptional(a.money, b.money, CompareNumbers);
    };
    switch (Pick(4)) {
      case 0:
        return {"", nullptr};
      case 1:
        return {"Number desc",
                [=](const ModelRow& a, const ModelRow& b) { return by_number(b, a); }};
      case 2:
        return {"Text, Money DESC", [=](const ModelRow& a, const ModelRow& b) {
                  const int text = by_text(a, b);
                  return text != 0 ? text : by_money(b, a);
                }};
      default:
        return {"money", by_money};
    }
  }

  // Everybody notices an edit when it is updated, an added row when it is shown.
  void Commit(ModelView& view) {
    if (view.adding != kNoRow) {
      const int added = std::exchange(view.adding, kNoRow);
      rows_[static_cast<std::size_t>(added)].pending = false;
      edited_ = kNoRow;
      for (auto& each : views_) each->Learn(added);
    }
    if (edited_ != kNoRow && editor_ == &view) {
      const int row = std::exchange(edited_, kNoRow);
      for (auto& each : views_) each->Learn(row);
    }
  }

  // Only one rowset edits at a time here; the rest is told by the tests of views.
  void CommitEditor() {
    if (edited_ == kNoRow) return;
    for (std::size_t i = 0; i < views_.size(); ++i) {
      if (views_[i].get() == editor_ && views_[i]->HasRow()) rowsets_[i]->Update();
    }
    if (editor_ != nullptr) Commit(*editor_);
    edited_ = kNoRow;
  }

  void Write(Recordset& rowset, ModelRow& row) {
    if (Pick(2) == 0) {
      row.number = Pick(6) == 0 ? std::nullopt : std::optional(Pick(5) - 1);
      rowset.Collect("Number", row.number ? Variant(*row.number) : Variant(Null));
    }
    if (Pick(2) == 0) {
      row.text = Pick(6) == 0 ? std::nullopt : std::optional<std::string>(TextOf(Pick(kTexts)));
      rowset.Collect("Text", row.text ? Variant(*row.text) : Variant(Null));
    }
    if (Pick(2) == 0) {
      row.money = Pick(40000) - 10000;
      rowset.Collect("Money", Currency::FromTenThousandths(*row.money));
    }
  }

  void MoveNext(Recordset& rowset, ModelView& view) {
    Commit(view);
    const auto visible = view.Visible();
    const bool at_end = view.stand == ModelView::kEof || (visible.empty() && !view.HasRow());
    if (at_end) {
      EXPECT_THROW(rowset.MoveNext(), Error);
      return;
    }
    rowset.MoveNext();
    if (view.stand == ModelView::kBof) return First(view);
    // A row that is gone stands where it stood when it was last noticed.
    const auto next = std::find_if(visible.begin(), visible.end(),
                                   [&](int other) { return view.Before(view.row, other); });
    view.stand = next == visible.end() ? ModelView::kEof : ModelView::kOn;
    if (next != visible.end()) view.row = *next;
  }

  void MovePrevious(Recordset& rowset, ModelView& view) {
    Commit(view);
    const auto visible = view.Visible();
    const bool at_start = view.stand == ModelView::kBof || (visible.empty() && !view.HasRow());
    if (at_start) {
      EXPECT_THROW(rowset.MovePrevious(), Error);
      return;
    }
    rowset.MovePrevious();
    const auto last = std::find_if(visible.rbegin(), visible.rend(), [&](int other) {
      return view.stand == ModelView::kEof || view.Before(other, view.row);
    });
    view.stand = last == visible.rend() ? ModelView::kBof : ModelView::kOn;
    if (last != visible.rend()) view.row = *last;
  }

  void Step() {
    const auto which = static_cast<std::size_t>(Pick(static_cast<int>(rowsets_.size())));
    Recordset& rowset = *rowsets_[which];
    ModelView& view = *views_[which];
    if (editor_ != &view) CommitEditor();
    switch (Pick(14)) {
      case 0:
        Commit(view);
        rowset.Filter((view.filter = RandomCriterion()).text);
        view.LearnAll();
        return First(view);
      case 1:
        Commit(view);
        rowset.Sort((view.order = RandomOrder()).text);
        view.LearnAll();
        return First(view);
      case 2:
      case 3:
      case 4:
        Commit(view);
        rowset.AddNew();
        rows_.emplace_back().pending = true;
        view.adding = view.row = static_cast<int>(rows_.size() - 1);
        view.stand = ModelView::kOn;
        view.Learn(view.row);
        editor_ = &view;
        edited_ = view.row;
        Write(rowset, rows_.back());
        rowset.Update();
        return Commit(view);
      case 5:
      case 6:
        if (!view.HasRow()) return;
        Write(rowset, rows_[static_cast<std::size_t>(view.row)]);
        editor_ = &view;
        edited_ = view.row;
        if (Pick(2) == 0) return;
        rowset.Update();
        return Commit(view);
      case 7:
        if (!view.HasRow()) {
          EXPECT_THROW(rowset.Delete(), Error);
          return;
        }
        Commit(view);
        rowset.Delete();
        rows_[static_cast<std::size_t>(view.row)].deleted = true;
        return;
      case 8:
        return MovePrevious(rowset, view);
      case 9:
        Commit(view);
        rowset.MoveLast();
        if (const auto visible = view.Visible(); visible.empty()) {
          view.stand = ModelView::kBof;
        } else {
          view.stand = ModelView::kOn;
          view.row = visible.back();
        }
        return;
      case 10: {
        if (rows_.empty()) return;
        Commit(view);
        const int to = Pick(static_cast<int>(rows_.size()));
        const auto bookmark = static_cast<Bookmark>(to);
        if (rows_[static_cast<std::size_t>(to)].deleted) {
          EXPECT_THROW(rowset.Bookmark(bookmark), Error);
          return;
        }
        rowset.Bookmark(bookmark);
        view.stand = ModelView::kOn;
        view.row = to;
        return;
      }
      case 11:
        if (rowsets_.size() < 4) {
          Commit(view);
          rowsets_.push_back(rowset.Clone());
          views_.push_back(NewView());
        }
        return;
      default:
        return MoveNext(rowset, view);
    }
  }

  void Compare(std::size_t which) {
    const Recordset& rowset = *rowsets_[which];
    const ModelView& view = *views_[which];
    const auto visible = view.Visible();
    std::vector<int> shown;
    for (const Recordset::Row row : rowset.Rows()) {
      shown.push_back(static_cast<int>(row.Bookmark()));
      const ModelRow& model = rows_[static_cast<std::size_t>(shown.back())];
      ASSERT_EQ(row["Number"], model.number ? Variant(*model.number) : Variant(Null));
      ASSERT_EQ(row["Text"], model.text ? Variant(*model.text) : Variant(Null));
      ASSERT_EQ(row["Money"],
                model.money ? Variant(Currency::FromTenThousandths(*model.money)) : Variant(Null));
    }
    ASSERT_EQ(shown, visible) << rowset.Filter() << " / " << rowset.Sort();
    ASSERT_EQ(rowset.RecordCount(), static_cast<int>(visible.size()));
    const bool empty = visible.empty() && !view.HasRow();
    ASSERT_EQ(rowset.Bof(), view.stand == ModelView::kBof || empty);
    ASSERT_EQ(rowset.Eof(), view.stand == ModelView::kEof || empty);
    if (view.HasRow()) {
      ASSERT_EQ(static_cast<int>(rowset.Bookmark()), view.row);
    } else {
      EXPECT_THROW((void)rowset.Bookmark(), Error);
    }
  }

  std::mt19937 random_;
  std::vector<ModelRow> rows_;
  std::vector<RecordsetPtr> rowsets_;
  std::vector<std::unique_ptr<ModelView>> views_;
  ModelView* editor_ = nullptr;
  int edited_ = kNoRow;
};

TEST_P(RecordsetModel, DoesWhatPlainVectorsDo) {
  random_.seed(static_cast<unsigned>(GetParam()));
  Start(GetParam() % 2 == 0);
  for (int step = 0; step < 900; ++step) {
    Step();
    for (std::size_t which = 0; which < rowsets_.size(); ++which) Compare(which);
    if (HasFatalFailure()) {
      FAIL() << "at step " << step;
    }
  }
  EXPECT_GT(rows_.size(), 120U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RecordsetModel, testing::Range(0, 10));

}  // namespace
}  // namespace pstolvane1
