#include "tests/data/FakeBooks.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "session/data/MessageLoop.h"
#include "session/data/ShapeParser.h"

namespace pstolvane1 {

void Gate::Open() {
  {
    const std::lock_guard lock(mutex_);
    open_ = true;
  }
  changed_.notify_all();
}

bool Gate::Pass(const std::atomic<bool>& cancelled) {
  std::unique_lock lock(mutex_);
  ++arrived_;
  changed_.notify_all();
  changed_.wait(lock, [&] { return open_ || cancelled; });
  return !cancelled;
}

void Gate::Ring() {
  { const std::lock_guard lock(mutex_); }
  changed_.notify_all();
}

void Gate::WaitForArrival() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return arrived_ > 0; });
}

namespace {

using std::chrono::milliseconds;

struct Counted {
  explicit Counted(std::atomic<int>& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  std::atomic<int>& count_;
};

const std::atomic<bool> kNotCancelled = false;

void SetCell(Chunk& chunk, std::size_t column, std::size_t row, DataType type,
             const Variant& value) {
  if (value.IsNull()) return;
  switch (type) {
    case adBoolean:
      return chunk.Set(column, row, value.ToBoolean().Raw());
    case adInteger:
      return chunk.Set(column, row, value.ToInt32());
    case adBigInt:
      return chunk.Set(column, row, value.ToInt64());
    case adSingle:
      return chunk.Set(column, row, value.ToSingle());
    case adDouble:
      return chunk.Set(column, row, value.ToDouble());
    case adCurrency:
      return chunk.Set(column, row, value.ToCurrency().TenThousandths());
    case adDate:
      return chunk.Set(column, row, value.ToDate().Serial());
    default:
      return chunk.SetText(column, row, value.ToText());
  }
}

class FakeCursor final : public Cursor {
 public:
  FakeCursor(std::shared_ptr<FakeBooks> books, const FakeTable& table, int state)
      : books_(std::move(books)), counted_(books_->live), table_(table), state_(state) {}

  const std::vector<ColumnInfo>& Columns() const override { return table_.columns; }

  std::size_t Read(Chunk& chunk) override {
    {
      const std::lock_guard lock(books_->mutex);
      books_->reading_threads.insert(std::this_thread::get_id());
    }
    if (table_.per_chunk.count() > 0) std::this_thread::sleep_for(table_.per_chunk);
    std::size_t added = 0;
    for (; next_ < table_.row_count && !chunk.Full(); ++next_, ++added) {
      if (next_ == table_.gate_at) (void)table_.gate->Pass(cancelled_);
      if (cancelled_) throw Error(ErrorNumber::kQueryRefused, "interrupted");
      if (next_ == table_.fails_at) {
        throw Error(ErrorNumber::kQueryRefused, "row " + std::to_string(next_) + " is damaged");
      }
      const std::size_t row = chunk.AddRow();
      const std::vector<Variant> cells = table_.cells(next_, state_);
      for (std::size_t column = 0; column < cells.size(); ++column) {
        SetCell(chunk, column, row, table_.columns[column].type, cells[column]);
      }
    }
    return added;
  }

  void Cancel() noexcept override {
    cancelled_ = true;
    table_.gate->Ring();
  }

 private:
  std::shared_ptr<FakeBooks> books_;
  Counted counted_;
  const FakeTable& table_;
  int state_;
  std::size_t next_ = 0;
  std::atomic<bool> cancelled_ = false;
};

std::string Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first));
}

const FakeTable& FindTable(const FakeBooks& books, std::string_view select) {
  const std::string name = Trimmed(select);
  const auto found = books.tables.find(name);
  if (found != books.tables.end()) return found->second;
  throw Error(ErrorNumber::kQueryRefused,
              shape::PlaceIn(select, select.find(name)) + ": there is no table " + name);
}

class FakeSnapshot final : public Snapshot {
 public:
  explicit FakeSnapshot(std::shared_ptr<FakeBooks> books)
      : books_(std::move(books)), counted_(books_->live), snapshot_(books_->live_snapshots) {
    ++books_->snapshots_taken;
  }

  std::shared_ptr<Cursor> Run(std::string_view select, milliseconds time_limit) override {
    const FakeTable& table = FindTable(*books_, select);
    if (table.run_error) throw Error(*table.run_error);
    const std::lock_guard lock(books_->mutex);
    books_->time_limits.push_back(time_limit);
    ++books_->runs[Trimmed(select)];
    return std::make_shared<FakeCursor>(books_, table, state_);
  }
  void Cancel() noexcept override {}

 private:
  std::shared_ptr<FakeBooks> books_;
  Counted counted_;
  Counted snapshot_;
  int state_ = books_->state;
};

class FakeProvider final : public Provider {
 public:
  explicit FakeProvider(std::shared_ptr<FakeBooks> books)
      : books_(std::move(books)), counted_(books_->live) {}

  std::shared_ptr<Snapshot> TakeSnapshot(milliseconds time_limit) override {
    ++books_->snapshots_asked;
    {
      const std::lock_guard lock(books_->mutex);
      books_->time_limits.push_back(time_limit);
    }
    if (books_->snapshot_gate && !books_->snapshot_gate->Pass(cancelled_)) {
      throw Error(ErrorNumber::kQueryRefused, "the wait for the lock was interrupted");
    }
    if (books_->snapshot_error) throw Error(*books_->snapshot_error);
    return std::make_shared<FakeSnapshot>(books_);
  }
  std::vector<ColumnInfo> Describe(std::string_view select) override {
    return FindTable(*books_, select).columns;
  }
  std::string Translate(std::string_view select) override {
    (void)FindTable(*books_, select);
    return "ENGINE " + Trimmed(select);
  }
  bool ReadsSideBySide() const noexcept override { return books_->side_by_side; }
  void Cancel() noexcept override {
    cancelled_ = true;
    if (books_->snapshot_gate) books_->snapshot_gate->Ring();
  }

 private:
  std::shared_ptr<FakeBooks> books_;
  Counted counted_;
  std::atomic<bool> cancelled_ = false;
};

ColumnInfo ColumnOf(const std::string& text) {
  static const std::map<std::string, DataType> kTypes{
      {"int", adInteger},    {"big", adBigInt}, {"single", adSingle}, {"double", adDouble},
      {"money", adCurrency}, {"date", adDate},  {"flag", adBoolean},  {"text", adVarChar}};
  const auto colon = text.find(':');
  const auto size = text.find(':', colon + 1);
  ColumnInfo info{text.substr(0, colon), kTypes.at(text.substr(colon + 1, size - colon - 1)), 0,
                  adFldIsNullable};
  if (size != std::string::npos) info.defined_size = std::stoi(text.substr(size + 1));
  return info;
}

Variant CellOf(std::string text, DataType type) {
  if (text == "(null)") return Null;
  if (text == "''") return "";
  switch (type) {
    case adVarChar:
      std::replace(text.begin(), text.end(), '_', ' ');
      return text;
    case adDate:
      return Date::FromIso(text).value();
    case adCurrency:
      return Currency::FromText(text);
    case adBoolean:
      return text == "True";
    case adInteger:
    case adBigInt:
      return static_cast<std::int64_t>(std::stoll(text));
    default:
      return std::stod(text);
  }
}

std::vector<std::string> Words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

}  // namespace

FakeTable& FakeBooks::Add(const std::string& name, std::string_view text) {
  FakeTable table;
  auto rows = std::make_shared<std::vector<std::vector<Variant>>>();
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    const std::vector<std::string> words = Words(line);
    if (words.empty()) continue;
    if (table.columns.empty()) {
      for (const std::string& word : words) table.columns.push_back(ColumnOf(word));
      continue;
    }
    auto& row = rows->emplace_back();
    for (std::size_t i = 0; i < words.size(); ++i) {
      row.push_back(CellOf(words[i], table.columns.at(i).type));
    }
  }
  table.row_count = rows->size();
  table.cells = [rows](std::size_t row, int) { return (*rows)[row]; };
  return tables[name] = std::move(table);
}

FakeTable& FakeBooks::AddNumbers(const std::string& name, std::size_t rows) {
  FakeTable table;
  table.columns = {{"n", adInteger, 0, adFldIsNullable}, {"t", adVarChar, 40, adFldIsNullable}};
  table.row_count = rows;
  table.cells = [](std::size_t row, int) {
    return std::vector<Variant>{static_cast<std::int32_t>(row), "row " + std::to_string(row)};
  };
  return tables[name] = std::move(table);
}

ProviderFactory FakeBooks::Factory(const std::shared_ptr<FakeBooks>& self) {
  return [self](const std::string& connection_string, milliseconds time_limit) {
    {
      const std::lock_guard lock(self->mutex);
      self->opened.push_back(connection_string);
      self->time_limits.push_back(time_limit);
    }
    if (self->open_gate) (void)self->open_gate->Pass(kNotCancelled);
    if (self->open_error) throw Error(*self->open_error);
    return std::make_shared<FakeProvider>(self);
  };
}

std::shared_ptr<Connection> Connected(const std::shared_ptr<FakeBooks>& books) {
  auto connection = Connection::New(books->Factory(books));
  connection->Open("books");
  return connection;
}

bool AllGone(const FakeBooks& books) {
  for (int i = 0; i < 60'000; ++i) {
    if (books.live == 0) return true;
    std::this_thread::sleep_for(milliseconds(1));
  }
  return false;
}

bool PumpUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    (void)WaitForEvents(milliseconds(50));
  }
  return true;
}

std::string Dump(Recordset& rowset, const std::string& before) {
  std::string text;
  if (rowset.RecordCount() > 0) rowset.MoveFirst();
  for (; !rowset.Eof(); rowset.MoveNext()) {
    std::string chapters;
    std::string line;
    for (int i = 0; i < rowset.Fields().Count(); ++i) {
      const Field field = rowset.Fields()(i);
      const Variant value = field.Value();
      if (field.Type() == adChapter) {
        chapters += Dump(*value.ToRowset(), "  " + before + field.Name() + ": ");
      } else {
        line += (line.empty() ? "" : " ") + field.Name() + "=" +
                (value.IsNull() ? "(null)" : value.ToText());
      }
    }
    text += before + line + "\n" + chapters;
  }
  return text;
}

std::string ColumnsOf(Recordset& rowset) {
  std::string text;
  for (int i = 0; i < rowset.Fields().Count(); ++i) {
    const Field field = rowset.Fields()(i);
    text += (i == 0 ? "" : " ") + field.Name() + ":" + std::to_string(field.Type());
  }
  return text;
}

std::string Thrown(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return std::to_string(static_cast<std::int32_t>(error.Number())) + ": " + error.Description();
  }
  return "nothing";
}

}  // namespace pstolvane1
