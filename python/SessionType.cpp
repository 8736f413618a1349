// The sessions of the module: opened books, and calls of operations on them.
#include "python/PythonTools.h"

namespace pstolvane1::python {
namespace {

using Session = std::shared_ptr<BooksThread>;

PyObject* New(PyTypeObject* type, PyObject*, PyObject*) {
  try {
    return NewObject(type, BooksThread::Start());
  } catch (const std::exception& error) {
    Raise(error);
    return nullptr;
  }
}

PyObject* NoneIf(bool done) {
  if (!done) return nullptr;
  Py_RETURN_NONE;
}

PyObject* Connect(PyObject* self, PyObject* arguments) {
  const char* books = nullptr;
  PyObject* on_event = nullptr;
  if (PyArg_ParseTuple(arguments, "sO:connect", &books, &on_event) == 0) return nullptr;
  return NoneIf(Run(
      PartOf<Session>(self),
      [&](pst_session* session) { return pst_session_connect(session, books); }, on_event));
}

PyObject* Call(PyObject* self, PyObject* arguments) {
  const char* operation = nullptr;
  const char* values = nullptr;
  PyObject* on_event = nullptr;
  if (PyArg_ParseTuple(arguments, "ssO:call", &operation, &values, &on_event) == 0) return nullptr;
  const Session& books = PartOf<Session>(self);
  pst_rowset* made = nullptr;
  char* told = nullptr;
  const bool done = Run(
      books,
      [&](pst_session* session) { return pst_call_json(session, operation, values, &made, &told); },
      on_event);
  const Text text(told);
  Rowset rowset(books, made);
  if (!done) return nullptr;
  const Reference given(PythonRowset(std::move(rowset)));
  const Reference result(PythonText(text.get()));
  return given && result ? PyTuple_Pack(2, given.get(), result.get()) : nullptr;
}

PyObject* Pump(PyObject* self, PyObject* arguments) {
  int at_most = 0;
  PyObject* on_event = nullptr;
  if (PyArg_ParseTuple(arguments, "iO:pump", &at_most, &on_event) == 0) return nullptr;
  int fetching = 0;
  const auto pump = [&](pst_session* session) {
    const std::int32_t number = pst_pump(at_most);
    return number == pst_ok ? pst_session_is_fetching(session, &fetching) : number;
  };
  return Run(PartOf<Session>(self), pump, on_event) ? PyBool_FromLong(fetching) : nullptr;
}

PyObject* Html(PyObject* self, PyObject* arguments) {
  PyObject* of = nullptr;
  const char* operation = nullptr;
  const char* values = nullptr;
  const char* company = nullptr;
  const char* locale = nullptr;
  if (PyArg_ParseTuple(arguments, "O!ssss:html", RowsetType(), &of, &operation, &values, &company,
                       &locale) == 0) {
    return nullptr;
  }
  char* made = nullptr;
  const pst_rowset* const rowset = PartOf<Rowset>(of).Get();
  const bool done = Run(PartOf<Session>(self), [&](pst_session* session) {
    return pst_report_html(session, rowset, operation, values, company, locale, &made);
  });
  const Text text(made);
  return done ? PythonText(text.get()) : nullptr;
}

PyObject* IsWhole(PyObject* self, PyObject*) {
  int whole = 0;
  if (!Run(PartOf<Session>(self),
           [&](pst_session* session) { return pst_session_report_is_whole(session, &whole); })) {
    return nullptr;
  }
  return PyBool_FromLong(whole);
}

PyObject* Abandon(PyObject* self, PyObject*) {
  const Session& books = PartOf<Session>(self);
  if (!books->IsElsewhere()) books->Abandon();
  Py_RETURN_NONE;
}

PyObject* Close(PyObject* self, PyObject*) {
  const Session& books = PartOf<Session>(self);
  if (books->IsElsewhere()) Py_RETURN_NONE;
  const auto close = [&](pst_session*) {
    books->Close();
    return pst_ok;
  };
  return NoneIf(Run(books, close, nullptr, Turn::kAtOnce));
}

PyMethodDef kMethods[] = {
    {"connect", &Connect, METH_VARARGS, "Opens the books."},
    {"call", &Call, METH_VARARGS, "Calls an operation with a JSON object of arguments."},
    {"pump", &Pump, METH_VARARGS, "Delivers events, after some milliseconds; False: no more come."},
    {"html", &Html, METH_VARARGS, "A report as a page for people."},
    {"is_whole", &IsWhole, METH_NOARGS, "Whether the last report went on to its end."},
    {"abandon", &Abandon, METH_NOARGS, "Drops the report in hand, from any thread."},
    {"close", &Close, METH_NOARGS, "Ends the session."},
    {nullptr, nullptr, 0, nullptr}};

}  // namespace

bool AddSessionType(PyObject* module) {
  PyType_Slot slots[] = {{Py_tp_new, reinterpret_cast<void*>(&New)},
                         {Py_tp_dealloc, reinterpret_cast<void*>(&DeleteObject<Session>)},
                         {Py_tp_methods, kMethods},
                         {0, nullptr}};
  PyType_Spec spec{"stolvane.native.Session", sizeof(Object<Session>), 0, Py_TPFLAGS_DEFAULT,
                   slots};
  const Reference type(PyType_FromSpec(&spec));
  return type && PyModule_AddType(module, reinterpret_cast<PyTypeObject*>(type.get())) == 0;
}

}  // namespace pstolvane1::python
