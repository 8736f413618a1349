// What the types of the module share. Python's stable interface is asked for by the build.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>
// The above comes before all others.

#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "python/BooksThread.h"

namespace pstolvane1::python {

// A reference that is given back at the end; none where a call has failed.
struct GiveBack {
  void operator()(PyObject* object) const { Py_XDECREF(object); }
};
using Reference = std::unique_ptr<PyObject, GiveBack>;

// A text of the library's, which takes it back.
struct FreeText {
  void operator()(char* text) const { pst_text_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

// What is no UTF-8 in a text is replaced.
[[nodiscard]] PyObject* PythonText(std::string_view text);

// Finds stolvane.Error, which Raise raises.
[[nodiscard]] bool FindError();
void Raise(std::int32_t number, std::string_view text);
// Raises what a C++ exception is in Python. Others than these are never caught: Python ends threads
// by one when a program ends.
void Raise(const std::exception& error);

// Runs the work on the thread of the books and waits for its end, while other threads of Python
// run. Events are handed to on_event(name, number, text, rowset) on this thread; None hears none.
// Ctrl-C and an exception of on_event abandon the report. Gives false, with a Python exception set,
// for these, for an error of the work, and elsewhere. kAtOnce abandons the reports that it would
// have to wait for.
enum class Turn { kInItsTurn, kAtOnce };
[[nodiscard]] bool Run(const std::shared_ptr<BooksThread>& books, BooksThread::Work work,
                       PyObject* on_event = nullptr, Turn turn = Turn::kInItsTurn);

// Of the types below: their C++ part begins and ends with the object.
template <typename Part>
struct Object {
  PyObject_HEAD Part part;
};
template <typename Part>
Part& PartOf(PyObject* self) {
  return reinterpret_cast<Object<Part>*>(self)->part;
}
template <typename Part>
PyObject* NewObject(PyTypeObject* type, Part part) {
  const auto allocate = reinterpret_cast<allocfunc>(PyType_GetSlot(type, Py_tp_alloc));
  PyObject* const self = allocate(type, 0);
  if (self != nullptr) new (&PartOf<Part>(self)) Part(std::move(part));
  return self;
}
template <typename Part>
void DeleteObject(PyObject* self) {
  PyTypeObject* const type = Py_TYPE(self);
  PartOf<Part>(self).~Part();
  reinterpret_cast<freefunc>(PyType_GetSlot(type, Py_tp_free))(self);
  Py_DECREF(type);
}

// A rowset and the thread that it belongs to.
class Rowset {
 public:
  Rowset(std::shared_ptr<BooksThread> books, pst_rowset* rowset)
      : books_(std::move(books)), rowset_(rowset) {}
  Rowset(Rowset&& other) noexcept
      : books_(std::move(other.books_)), rowset_(std::exchange(other.rowset_, nullptr)) {}
  Rowset& operator=(Rowset&&) = delete;
  ~Rowset() {
    if (rowset_ == nullptr) return;
    books_->Post([rowset = rowset_](pst_session*) {
      pst_rowset_free(rowset);
      return pst_ok;
    });
  }

  [[nodiscard]] const std::shared_ptr<BooksThread>& Books() const { return books_; }
  [[nodiscard]] pst_rowset* Get() const { return rowset_; }

 private:
  std::shared_ptr<BooksThread> books_;
  pst_rowset* rowset_;
};

[[nodiscard]] PyTypeObject* RowsetType();
// The Python object of a rowset; None for none.
[[nodiscard]] PyObject* PythonRowset(Rowset rowset);

// Add their type to the module.
[[nodiscard]] bool AddSessionType(PyObject* module);
[[nodiscard]] bool AddRowsetType(PyObject* module);

// A capsule with the Arrow stream of a rowset, from any thread to any thread.
[[nodiscard]] PyObject* ArrowCapsule(const Rowset& rowset);

}  // namespace pstolvane1::python
