// calculate.evaluate("1+2") gives 3.0, and raises ValueError for what is no number.
#define PY_SSIZE_T_CLEAN
#include <Python.h>
#include <mirlow/state.h>
#include <mirlow/value.h>

static PyObject* Evaluate(PyObject*, PyObject* arguments) {
  const char* text = nullptr;
  if (!PyArg_ParseTuple(arguments, "s", &text)) return nullptr;
  Quarn::State state;
  const Quarn::Result result = state.Compute(text);
  if (const auto number = Quarn::ToNumber(result.value)) return PyFloat_FromDouble(*number);
  PyErr_SetString(PyExc_ValueError, result ? "not a number" : result.error.c_str());
  return nullptr;
}

PyMODINIT_FUNC PyInit_calculate() {
  static PyMethodDef functions[] = {
      {"evaluate", Evaluate, METH_VARARGS, "The number that an expression comes to."},
      {nullptr,    nullptr,  0,            nullptr                                  },
  };
  static PyModuleDef module = {PyModuleDef_HEAD_INIT,
                               "calculate",
                               nullptr,
                               -1,
                               functions,
                               nullptr,
                               nullptr,
                               nullptr,
                               nullptr};
  return PyModule_Create(&module);
}
