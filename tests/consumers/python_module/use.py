"""Loads the module and computes with it."""
import calculate

assert calculate.evaluate("6*7") == 42
try:
    calculate.evaluate("nothing")
    raise AssertionError("no error")
except ValueError as error:
    assert str(error) == "\tError : Unknown symbol 'nothing'", error
