// Whoever takes columns asks for them on any thread; the library's stream is asked on its own.
#include <cerrno>
#include <chrono>

#include "automation/pstolvane1_arrow.h"
#include "python/PythonTools.h"

namespace pstolvane1::python {
namespace {

constexpr const char* kCapsule = "arrow_array_stream";  // the name that all takers look for

struct Stream {
  std::shared_ptr<BooksThread> books;
  ArrowArrayStream of_library;
  std::string error;
};

Stream& Of(ArrowArrayStream* stream) { return *static_cast<Stream*>(stream->private_data); }

// Asks the library's stream, without Python: the caller may hold its lock or not.
template <typename Ask>
int Asked(ArrowArrayStream* stream, const Ask& ask) noexcept {
  Stream& of = Of(stream);
  try {
    of.error.clear();
    if (of.books->IsElsewhere()) {
      of.error = "the books were opened in the process that this one was forked from";
      return EIO;
    }
    int result = 0;
    const auto task = of.books->Begin([&](pst_session*) {
      result = ask(of.of_library);
      const char* const error =
          result == 0 ? nullptr : of.of_library.get_last_error(&of.of_library);
      if (error != nullptr) of.error = error;
      return pst_ok;
    });
    while (!of.books->Wait(*task, std::chrono::hours(1))) {
    }
    return result;
  } catch (const std::bad_alloc&) {
    return ENOMEM;
  }
}

int GetSchema(ArrowArrayStream* stream, ArrowSchema* schema) {
  return Asked(stream, [&](ArrowArrayStream& of) { return of.get_schema(&of, schema); });
}
int GetNext(ArrowArrayStream* stream, ArrowArray* array) {
  return Asked(stream, [&](ArrowArrayStream& of) { return of.get_next(&of, array); });
}
const char* GetLastError(ArrowArrayStream* stream) {
  const std::string& error = Of(stream).error;
  return error.empty() ? nullptr : error.c_str();
}
void Release(ArrowArrayStream* stream) {
  const std::unique_ptr<Stream> gone(&Of(stream));
  gone->books->Post([of_library = gone->of_library](pst_session*) mutable {
    of_library.release(&of_library);
    return pst_ok;
  });
  *stream = {};
}

void DeleteCapsule(PyObject* capsule) {
  const std::unique_ptr<ArrowArrayStream> stream(
      static_cast<ArrowArrayStream*>(PyCapsule_GetPointer(capsule, kCapsule)));
  if (stream->release != nullptr) stream->release(stream.get());
}

}  // namespace

PyObject* ArrowCapsule(const Rowset& rowset) {
  try {
    auto of_library = std::make_unique<Stream>(Stream{rowset.Books(), {}, {}});
    auto stream = std::make_unique<ArrowArrayStream>();
    if (!Run(rowset.Books(), [&](pst_session*) {
          return pst_rowset_arrow(rowset.Get(), &of_library->of_library);
        })) {
      return nullptr;
    }
    *stream = {&GetSchema, &GetNext, &GetLastError, &Release, of_library.release()};
    PyObject* const capsule = PyCapsule_New(stream.get(), kCapsule, &DeleteCapsule);
    if (capsule == nullptr) {
      Release(stream.get());
    } else {
      static_cast<void>(stream.release());
    }
    return capsule;
  } catch (const std::bad_alloc&) {
    return PyErr_NoMemory();
  }
}

}  // namespace pstolvane1::python
