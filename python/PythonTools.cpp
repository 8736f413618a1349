#include "python/PythonTools.h"

#include <chrono>
#include <vector>

namespace pstolvane1::python {
namespace {

// How soon Ctrl-C is noticed.
constexpr std::chrono::milliseconds kLook{50};
constexpr std::int32_t kObjectNotSet = 91;

Reference& ErrorClass() {
  static auto& error = *new Reference();  // as long as the process
  return error;
}

// False when the handler has raised. Once something was raised, rowsets are only let go.
bool Deliver(const std::shared_ptr<BooksThread>& books, const std::vector<Event>& events,
             PyObject* on_event, bool goes_on) {
  for (const Event& event : events) {
    Rowset rowset(books, event.rowset);
    if (!goes_on || on_event == nullptr || on_event == Py_None) continue;
    const Reference text(PythonText(event.text));
    const Reference given(PythonRowset(std::move(rowset)));
    goes_on = text && given;
    if (!goes_on) continue;
    const Reference answer(
        PyObject_CallFunction(on_event, "siOO", event.name, event.number, text.get(), given.get()));
    goes_on = answer != nullptr;
  }
  return goes_on;
}

}  // namespace

PyObject* PythonText(std::string_view text) {
  return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
}

bool FindError() {
  const Reference module(PyImport_ImportModule("stolvane._error"));
  if (module) ErrorClass().reset(PyObject_GetAttrString(module.get(), "Error"));
  return ErrorClass() != nullptr;
}

void Raise(std::int32_t number, std::string_view text) {
  const Reference told(PythonText(text));
  if (!told) return;
  const Reference error(PyObject_CallFunction(ErrorClass().get(), "iO", number, told.get()));
  if (error) PyErr_SetObject(ErrorClass().get(), error.get());
}

void Raise(const std::exception& error) {
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
    PyErr_NoMemory();
  } else {
    PyErr_SetString(PyExc_RuntimeError, error.what());
  }
}

bool Run(const std::shared_ptr<BooksThread>& books, BooksThread::Work work, PyObject* on_event,
         Turn turn) {
  if (books->IsElsewhere()) {
    Raise(kObjectNotSet, "the books were opened in the process that this one was forked from");
    return false;
  }
  try {
    const std::shared_ptr<BooksThread::Task> task = books->Begin(std::move(work));
    bool goes_on = true;
    for (bool ended = false; !ended;) {
      if (turn == Turn::kAtOnce) books->Abandon();
      // Not by an object: when the program ends, taking the lock again ends the thread by an
      // exception.
      PyThreadState* const state = PyEval_SaveThread();
      ended = books->Wait(*task, kLook);
      PyEval_RestoreThread(state);
      goes_on = Deliver(books, books->TakeEvents(*task), on_event, goes_on);
      goes_on = goes_on && PyErr_CheckSignals() == 0;
      if (!goes_on && !ended) books->Drop(*task);
    }
    std::string text;
    const std::int32_t number = BooksThread::ErrorOf(*task, text);
    if (goes_on && number != pst_ok) Raise(number, text);
    return goes_on && number == pst_ok;
  } catch (const std::exception& error) {
    Raise(error);
    return false;
  }
}

}  // namespace pstolvane1::python
