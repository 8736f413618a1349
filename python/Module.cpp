// stolvane.native: the C interface as Python's own objects. The package's Python files stand on it.
#include "python/PythonTools.h"

namespace pstolvane1::python {
namespace {

PyObject* Catalogue(PyObject*, PyObject*) {
  const Text json(pst_catalogue());
  if (json) return PythonText(json.get());
  Raise(pst_error_number(), pst_error_text());
  return nullptr;
}

PyObject* SortText(PyObject*, PyObject* arguments) {
  const char* operation = nullptr;
  int asked = 0;
  int detailed = 0;
  int descending = 0;
  const char* twin = nullptr;
  if (PyArg_ParseTuple(arguments, "sipps:sort_text", &operation, &asked, &detailed, &descending,
                       &twin) == 0) {
    return nullptr;
  }
  const std::int32_t flags =
      (detailed != 0 ? pst_sort_detailed : 0) | (descending != 0 ? pst_sort_descending : 0);
  char* made = nullptr;
  const std::int32_t number = pst_sort_text(operation, asked, flags, twin, &made);
  const Text text(made);
  if (number == pst_ok) return PythonText(text.get());
  Raise(number, pst_error_text());
  return nullptr;
}

PyMethodDef kMethods[] = {
    {"catalogue", &Catalogue, METH_NOARGS, "Every operation with its arguments, as JSON."},
    {"sort_text", &SortText, METH_VARARGS, "What Rowset.sort takes to sort a report by a twin."},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef kModule = {
    PyModuleDef_HEAD_INIT, "native", nullptr, -1, kMethods, nullptr, nullptr, nullptr, nullptr};

}  // namespace
}  // namespace pstolvane1::python

PyMODINIT_FUNC PyInit_native() {
  using namespace pstolvane1::python;
  Reference module(PyModule_Create(&kModule));
  if (!module || !FindError() || !AddSessionType(module.get()) || !AddRowsetType(module.get())) {
    return nullptr;
  }
  return module.release();
}
