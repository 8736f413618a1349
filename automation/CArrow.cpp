// A rowset's stream of batches for hosts in C.
#include <cerrno>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "automation/ArrowColumns.h"
#include "automation/CGuard.h"
#include "automation/CHandles.h"
#include "automation/CRowset.h"
#include "automation/pstolvane1_arrow.h"

namespace pstolvane1::automation {
namespace {

constexpr std::size_t kBatchRows = 16384;

class Stream {
 public:
  explicit Stream(RecordsetPtr rowset)
      : rowset_(std::move(rowset)), columns_(*rowset_), rows_(rowset_->Rows()) {}

  [[nodiscard]] static Stream& Of(ArrowArrayStream* stream) {
    return *static_cast<Stream*>(stream->private_data);
  }
  void Schema(ArrowSchema& schema) const { MakeSchema(columns_, schema); }
  // Behind the last row an array that is released already, which is how the end is told.
  void Next(ArrowArray& array) {
    array = {};
    std::vector<Recordset::Row> batch;
    for (; rows_.first != rows_.last && batch.size() < kBatchRows; ++rows_.first) {
      batch.push_back(*rows_.first);
    }
    if (!batch.empty()) MakeArray(columns_, batch, array);
  }
  // Runs the work; 0, or a number of <errno.h> with its sentence kept.
  template <typename Work>
  int Guarded(const Work& work) noexcept {
    try {
      if (std::this_thread::get_id() != thread_) {
        error_ = "the stream belongs to the thread that has its rowset";
        return EINVAL;
      }
      work();
      error_.clear();
      return 0;
    } catch (const std::bad_alloc&) {
      error_.clear();
      return ENOMEM;
    } catch (const Error& error) {
      error_ = error.what();
      return error.Number() == ErrorNumber::kObjectNotSet ? EINVAL : EIO;
    } catch (const std::exception& error) {
      error_ = error.what();
      return EIO;
    }
  }
  // nullptr when the last call went well.
  [[nodiscard]] const char* LastError() const { return error_.empty() ? nullptr : error_.c_str(); }

 private:
  const Living living_;
  const RecordsetPtr rowset_;
  const ArrowColumns columns_;
  Recordset::RowRange rows_;
  const std::thread::id thread_ = std::this_thread::get_id();
  std::string error_;
};

// Of none, and of one that was released, nothing is left to ask.
bool IsThere(const ArrowArrayStream* stream) { return stream && stream->private_data; }

int GetSchema(ArrowArrayStream* stream, ArrowSchema* schema) {
  if (!IsThere(stream)) return EINVAL;
  Stream& of = Stream::Of(stream);
  return of.Guarded([&] { of.Schema(Given(schema, "place for the schema")); });
}
int GetNext(ArrowArrayStream* stream, ArrowArray* array) {
  if (!IsThere(stream)) return EINVAL;
  Stream& of = Stream::Of(stream);
  return of.Guarded([&] { of.Next(Given(array, "place for the batch")); });
}
const char* GetLastError(ArrowArrayStream* stream) {
  return IsThere(stream) ? Stream::Of(stream).LastError() : nullptr;
}
void Release(ArrowArrayStream* stream) {
  if (!IsThere(stream)) return;
  const std::unique_ptr<Stream> gone(&Stream::Of(stream));
  stream->private_data = nullptr;
  stream->release = nullptr;
}

}  // namespace
}  // namespace pstolvane1::automation

using namespace pstolvane1::automation;

int32_t pst_rowset_arrow(const pst_rowset* rowset, struct ArrowArrayStream* stream) {
  return Guarded([&] {
    ArrowArrayStream& result = Given(stream, "place for the stream");
    result = {};
    Handles::CheckMine(rowset, HandleKind::kRowset);
    auto made = std::make_unique<Stream>(rowset->rows);
    result.get_schema = &GetSchema;
    result.get_next = &GetNext;
    result.get_last_error = &GetLastError;
    result.release = &Release;
    result.private_data = made.release();
  });
}
