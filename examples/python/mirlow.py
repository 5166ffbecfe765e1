"""mirlow in Python, by ctypes and the shared library.

    >>> session = Session()
    >>> session["x"] = 3
    >>> session("2*x")
    6.0
    >>> session["v"] = [1, 2, 3]
    >>> session("x*v")
    [3.0, 6.0, 9.0]
    >>> session("2*y")
    Traceback (most recent call last):
    mirlow.Error: Unknown symbol 'y'

    >>> square = session.prepare("x*x+1")
    >>> square()
    10.0
    >>> square(x=4)
    17.0

Numbers are floats and vectors are lists, of lists too; any other value is its text. A reference is
what it comes to. The library is looked for as the system does, or where the environment variable
MIRLOW_LIBRARY says. A session is for one thread at a time.
"""
import ctypes
import ctypes.util
import os
from ctypes import POINTER, byref, c_char_p, c_double, c_int, c_size_t, c_void_p

_OK, _FAILED, _NOT_FOUND, _WRONG_TYPE, _BAD_ARGUMENT, _NO_MEMORY, _INTERNAL = range(7)
_OTHER, _NUMBER, _VECTOR, _REFERENCE = range(4)


class Error(Exception):
    """What a user typed failed. Has the position and the length of the place, in characters."""

    def __init__(self, message, position=0, length=0):
        super().__init__(message)
        self.position = position
        self.length = length


class LimitError(Error):
    """A limit was reached, or somebody interrupted."""


_MEMORY, _NESTING = 6, 7  # of the kinds of failures: memory, and those from which on are limits


class _LastError(ctypes.Structure):
    _fields_ = [("kind", c_int), ("text", c_char_p), ("position", c_size_t), ("length", c_size_t)]


class _Limits(ctypes.Structure):
    _fields_ = [(name, ctypes.c_ulonglong) for name in ("steps", "memory", "output", "nesting")]
    _fields_.append(("ends_the_endless", c_int))


_Write = ctypes.CFUNCTYPE(None, c_void_p, c_void_p, c_size_t)
_Function = ctypes.CFUNCTYPE(c_double, c_void_p, POINTER(c_double), c_size_t)


def _load():
    path = os.environ.get("MIRLOW_LIBRARY") or ctypes.util.find_library("mirlow")
    if not path:
        raise ImportError("libmirlow is not installed; MIRLOW_LIBRARY may say where it is")
    library = ctypes.CDLL(path)
    out = POINTER(c_void_p)
    for name, result, *arguments in [
        ("version", c_char_p),
        ("new", c_void_p),
        ("free", None, c_void_p),
        ("last_error", POINTER(_LastError), c_void_p),
        ("evaluate", c_int, c_void_p, c_char_p, out),
        ("set_limits", c_int, c_void_p, POINTER(_Limits)),
        ("interrupt", None, c_void_p),
        ("set_output", c_int, c_void_p, _Write, c_void_p),
        ("process_line", c_int, c_void_p, c_char_p),
        ("prepare", c_int, c_void_p, c_char_p, out),
        ("free_expression", None, c_void_p),
        ("evaluate_prepared", c_int, c_void_p, out),
        ("evaluate_number", c_int, c_void_p, POINTER(c_double)),
        ("get_name_read", c_int, c_void_p, c_size_t, POINTER(c_char_p)),
        ("get_variable", c_int, c_void_p, c_char_p, out),
        ("free_variable", None, c_void_p),
        ("set_variable", c_int, c_void_p, c_double),
        ("set", c_int, c_void_p, c_char_p, c_void_p),
        ("set_reference", c_int, c_void_p, c_char_p, c_char_p),
        ("get", c_int, c_void_p, c_char_p, out),
        ("erase", c_int, c_void_p, c_char_p),
        ("get_name", c_int, c_void_p, c_size_t, POINTER(c_char_p)),
        ("release", None, c_void_p),
        ("get_kind", c_int, c_void_p),
        ("text", c_char_p, c_void_p),
        ("to_number", c_int, c_void_p, POINTER(c_double)),
        ("count", c_int, c_void_p, POINTER(c_size_t)),
        ("element", c_int, c_void_p, c_size_t, out),
        ("to_numbers", c_int, c_void_p, POINTER(c_double), c_size_t),
        ("follow", c_int, c_void_p, c_void_p, out),
        ("from_number", c_int, c_double, out),
        ("from_numbers", c_int, POINTER(c_double), c_size_t, out),
        ("from_elements", c_int, POINTER(c_void_p), c_size_t, out),
        ("add_number_function", c_int, c_void_p, c_char_p, c_size_t, _Function, c_int, c_void_p,
         c_void_p),
    ]:
        function = getattr(library, "mirlow_" + name)
        function.restype = result
        function.argtypes = arguments
    return library


_library = _load()


def version():
    """The version of the library, "1.2.3"."""
    return _library.mirlow_version().decode()


class _Value:
    """A value of the library, released with the object."""

    def __init__(self, handle):
        self.handle = handle

    def __del__(self):
        _library.mirlow_release(self.handle)

    @classmethod
    def made_by(cls, function, *arguments):
        """What the function hands out behind its arguments."""
        handle = c_void_p()
        _check(function(*arguments, byref(handle)))
        return cls(handle)

    @classmethod
    def of(cls, value):
        """The value of a number, or of a sequence of values."""
        if isinstance(value, (int, float)):
            return cls.made_by(_library.mirlow_from_number, value)
        if isinstance(value, (str, bytes)):
            raise TypeError("a text is no value; a session evaluates it when it is called")
        value = list(value)
        if all(isinstance(element, (int, float)) for element in value):
            numbers = (c_double * len(value))(*value)
            return cls.made_by(_library.mirlow_from_numbers, numbers, len(value))
        elements = [cls.of(element) for element in value]
        handles = (c_void_p * len(elements))(*[element.handle for element in elements])
        return cls.made_by(_library.mirlow_from_elements, handles, len(elements))

    def to_python(self):
        number = c_double()
        if _library.mirlow_to_number(self.handle, byref(number)) == _OK:
            return number.value
        count = c_size_t()
        if _library.mirlow_count(self.handle, byref(count)) != _OK:
            return _library.mirlow_text(self.handle).decode()
        numbers = (c_double * count.value)()
        if _library.mirlow_to_numbers(self.handle, numbers, count) == _OK:
            return list(numbers)
        return [
            _Value.made_by(_library.mirlow_element, self.handle, index).to_python()
            for index in range(count.value)
        ]


def _check(status):
    """Raises what a status that is no failure of the user's stands for."""
    if status == _NO_MEMORY:
        raise MemoryError
    if status == _WRONG_TYPE:
        raise TypeError("the elements of a vector must be of one type")
    if status != _OK:
        raise ValueError("status %d" % status)


def _encode(text):
    """A text for the library, which would take a zero character for the end."""
    if "\0" in text:
        raise ValueError("the text has a zero character")
    return text.encode()


class _Variable:
    """The place of a symbol, for numbers."""

    def __init__(self, session, name):
        self._session = session  # lives as long
        handle = c_void_p()
        session._check(_library.mirlow_get_variable(session._state, _encode(name), byref(handle)))
        self.handle = handle

    def __del__(self):
        _library.mirlow_free_variable(getattr(self, "handle", None))


class Expression:
    """A text that was read once and is evaluated whenever it is called, with the values that its
    names have then. Keyword arguments give names values first, and those stay."""

    def __init__(self, session, text):
        self.text = text
        self._session = session  # lives as long
        self._variables = {}
        self._number = c_double()
        encoded = self._encoded = _encode(text)
        handle = c_void_p()
        session._check(_library.mirlow_prepare(session._state, encoded, byref(handle)), encoded)
        self._handle = handle

    def __del__(self):
        _library.mirlow_free_expression(getattr(self, "_handle", None))

    def __call__(self, **values):
        """The value now. Raises Error."""
        for name, value in values.items():
            self._set(name, value)
        status = _library.mirlow_evaluate_number(self._handle, byref(self._number))
        if status != _WRONG_TYPE:
            self._session._check(status, self._encoded)
            return self._number.value
        handle = c_void_p()
        status = _library.mirlow_evaluate_prepared(self._handle, byref(handle))
        return self._session._take(status, handle, self._encoded)

    @property
    def names(self):
        """The names of the symbols that the text reads."""
        name, names = c_char_p(), []
        while _library.mirlow_get_name_read(self._handle, len(names), byref(name)) == _OK:
            names.append(name.value.decode())
        return names

    def _set(self, name, value):
        if not isinstance(value, (int, float)):
            self._session[name] = value
            return
        if name not in self._variables:
            self._variables[name] = _Variable(self._session, name)
        _library.mirlow_set_variable(self._variables[name].handle, value)


class Session:
    """A state: symbols by name, expressions by call, command lines by run."""

    def __init__(self):
        self._functions = []  # kept while the library may call them
        self._raised = None
        self._state = _library.mirlow_new()
        if not self._state:
            raise MemoryError

    def __del__(self):
        if getattr(self, "_state", None):
            _library.mirlow_free(self._state)

    def __call__(self, expression):
        """The value of an expression. Raises Error."""
        text = _encode(expression)
        handle = c_void_p()
        status = _library.mirlow_evaluate(self._state, text, byref(handle))
        return self._take(status, handle, text)

    def prepare(self, expression):
        """The expression read once, to be called many times. Raises Error where it is not written
        as it must be."""
        return Expression(self, expression)

    def _take(self, status, handle, text):
        """What an evaluation handed out, a reference followed."""
        self._check(status, text)
        value = _Value(handle)
        if _library.mirlow_get_kind(value.handle) == _REFERENCE:
            followed = c_void_p()
            self._check(_library.mirlow_follow(self._state, value.handle, byref(followed)))
            value = _Value(followed)
        return value.to_python()

    def __setitem__(self, name, value):
        """Gives a name a number, or a list of them, or one of lists."""
        value = _Value.of(value)
        self._check(_library.mirlow_set(self._state, _encode(name), value.handle))

    def __getitem__(self, name):
        """The value of a symbol. Raises KeyError."""
        handle = c_void_p()
        if _library.mirlow_get(self._state, _encode(name), byref(handle)) == _NOT_FOUND:
            raise KeyError(name)
        return _Value(handle).to_python()

    def __delitem__(self, name):
        if _library.mirlow_erase(self._state, _encode(name)) == _NOT_FOUND:
            raise KeyError(name)

    def __contains__(self, name):
        return name in iter(self)

    def __iter__(self):
        """The names of all symbols, in order, without "_"."""
        name, names = c_char_p(), []
        while _library.mirlow_get_name(self._state, len(names), byref(name)) == _OK:
            names.append(name.value.decode())
        return iter([name for name in names if name != "_"])

    def refer(self, name, expression):
        """Makes a name a reference, which follows what the expression names."""
        text = _encode(expression)
        self._check(_library.mirlow_set_reference(self._state, _encode(name), text))

    def define(self, name, function, count, pure=False):
        """Adds a function of so many numbers. What it raises comes out of the call that led to it."""

        def call(_user, arguments, number):
            try:
                return float(function(*arguments[:number]))
            except BaseException as error:  # nothing may pass through the library
                self._raised = error
                return float("nan")

        callback = _Function(call)
        status = _library.mirlow_add_number_function(
            self._state, _encode(name), count, callback, int(pure), None, None)
        self._functions.append(callback)
        _check(status)

    def limit(self, steps=0, memory=0, output=0, nesting=0, ends_the_endless=True):
        """What an evaluation may use from now on, 0 being all; beyond, LimitError is raised."""
        limits = _Limits(steps, memory, output, nesting, int(ends_the_endless))
        self._check(_library.mirlow_set_limits(self._state, byref(limits)))

    def interrupt(self):
        """Ends what is under way with LimitError. The one method for other threads."""
        _library.mirlow_interrupt(self._state)

    def run(self, line):
        """Carries out the commands of a line as at the prompt, and returns what they print."""
        printed = []
        write = _Write(lambda _user, text, length: printed.append(ctypes.string_at(text, length)))
        text = _encode(line)
        _library.mirlow_set_output(self._state, write, None)
        try:
            self._check(_library.mirlow_process_line(self._state, text))
        finally:
            _library.mirlow_set_output(self._state, _Write(), None)
        return b"".join(printed).decode(errors="replace")

    def _check(self, status, expression=b""):
        raised, self._raised = self._raised, None
        if raised:
            raise raised
        if status != _FAILED:
            return _check(status)
        error = _library.mirlow_last_error(self._state).contents
        # The library counts bytes.
        begin = len(expression[:error.position].decode(errors="replace"))
        end = len(expression[:error.position + error.length].decode(errors="replace"))
        message = error.text.decode(errors="replace").strip()
        kind = LimitError if error.kind == _MEMORY or error.kind >= _NESTING else Error
        raise kind(message.removeprefix("Error : "), begin, end - begin)
