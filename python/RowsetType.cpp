// The rowsets of the module: what a report is made of, and what is made of it.
#include "python/PythonTools.h"

namespace pstolvane1::python {
namespace {

PyTypeObject* the_type = nullptr;

// The text that a function of the library makes; nullptr with an exception.
template <typename Make>
PyObject* TextOf(PyObject* self, const Make& make) {
  const Rowset& rowset = PartOf<Rowset>(self);
  char* made = nullptr;
  const bool done = Run(rowset.Books(), [&](pst_session*) { return make(rowset.Get(), &made); });
  const Text text(made);
  return done ? PythonText(text.get()) : nullptr;
}

PyObject* Json(PyObject* self, PyObject*) { return TextOf(self, &pst_rowset_json); }

PyObject* Csv(PyObject* self, PyObject*) { return TextOf(self, &pst_rowset_csv); }

PyObject* Sort(PyObject* self, PyObject* arguments) {
  const char* columns = nullptr;
  if (PyArg_ParseTuple(arguments, "s:sort", &columns) == 0) return nullptr;
  const Rowset& rowset = PartOf<Rowset>(self);
  if (!Run(rowset.Books(), [&](pst_session*) { return pst_rowset_sort(rowset.Get(), columns); })) {
    return nullptr;
  }
  Py_RETURN_NONE;
}

PyObject* Size(PyObject* self, PyObject*) {
  const Rowset& rowset = PartOf<Rowset>(self);
  std::int32_t rows = 0;
  if (!Run(rowset.Books(), [&](pst_session*) {
        rows = pst_rowset_rows(rowset.Get());
        return rows < 0 ? pst_error_number() : pst_ok;
      })) {
    return nullptr;
  }
  return PyLong_FromLong(rows);
}

PyObject* Arrow(PyObject* self, PyObject*) { return ArrowCapsule(PartOf<Rowset>(self)); }

PyMethodDef kMethods[] = {
    {"size", &Size, METH_NOARGS, "The number of rows."},
    {"json", &Json, METH_NOARGS, "All columns and rows as JSON."},
    {"csv", &Csv, METH_NOARGS, "All columns and rows as CSV."},
    {"sort", &Sort, METH_VARARGS, "Puts the rows in an order."},
    {"arrow", &Arrow, METH_NOARGS, "A capsule with an Arrow stream of the rows."},
    {nullptr, nullptr, 0, nullptr}};

}  // namespace

PyTypeObject* RowsetType() { return the_type; }

PyObject* PythonRowset(Rowset rowset) {
  if (rowset.Get() == nullptr) Py_RETURN_NONE;
  return NewObject(the_type, std::move(rowset));
}

bool AddRowsetType(PyObject* module) {
  PyType_Slot slots[] = {{Py_tp_dealloc, reinterpret_cast<void*>(&DeleteObject<Rowset>)},
                         {Py_tp_methods, kMethods},
                         {0, nullptr}};
  PyType_Spec spec{"stolvane.native.Rowset", sizeof(Object<Rowset>), 0,
                   Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION, slots};
  the_type = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
  return the_type != nullptr && PyModule_AddType(module, the_type) == 0;
}

}  // namespace pstolvane1::python
