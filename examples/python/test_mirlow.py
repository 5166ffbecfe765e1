"""Tests of mirlow.py: python3 test_mirlow.py"""
import doctest
import gc
import math
import unittest

import mirlow


class Values(unittest.TestCase):
    def setUp(self):
        self.session = mirlow.Session()

    def test_numbers_and_vectors_come_out_as_floats_and_lists(self):
        for expression, value in [
            ("6*7", 42.0),
            ("<1, 2>*0.25", [0.25, 0.5]),
            ("<>", []),
            ("<<1>, <2>>", [[1.0], [2.0]]),
            ("&1+1", 2.0),
        ]:
            self.assertEqual(self.session(expression), value, expression)
        self.assertTrue(math.isnan(self.session("0/0")))

    def test_what_goes_in_comes_out(self):
        for value in (3, -0.5, [1, 2], (1, 2), [], [[1], [2]], [[], []]):
            self.session["x"] = value
            plain = [list(e) if isinstance(e, list) else e for e in value] \
                if isinstance(value, (list, tuple)) else value
            self.assertEqual(self.session["x"], plain)
            self.assertEqual(self.session("x"), plain)

    def test_elements_of_several_types_are_refused(self):
        with self.assertRaises(TypeError):
            self.session["x"] = [1, [2]]
        with self.assertRaises(TypeError):
            self.session["x"] = object()
        with self.assertRaises(TypeError):
            self.session["x"] = "text"

    def test_symbols_can_be_listed_and_deleted(self):
        self.session["b"] = 1
        self.session["a"] = 2
        self.assertEqual(list(self.session), ["a", "b"])
        self.assertIn("a", self.session)
        del self.session["a"]
        self.assertNotIn("a", self.session)
        with self.assertRaises(KeyError):
            del self.session["a"]
        with self.assertRaises(KeyError):
            self.session["a"]

    def test_references_follow_what_they_name(self):
        self.session.refer("r", "x+1")
        with self.assertRaisesRegex(mirlow.Error, "Unknown symbol 'x'"):
            self.session("r")
        self.session["x"] = 1
        self.assertEqual(self.session("r"), 2)
        self.session["x"] = 2
        self.assertEqual(self.session["r"], 3)


class Errors(unittest.TestCase):
    def setUp(self):
        self.session = mirlow.Session()

    def test_have_a_message_and_a_place(self):
        with self.assertRaises(mirlow.Error) as caught:
            self.session("2*width")
        self.assertEqual(str(caught.exception), "Unknown symbol 'width'")
        self.assertEqual((caught.exception.position, caught.exception.length), (2, 5))

    def test_places_count_characters(self):
        with self.assertRaises(mirlow.Error) as caught:
            self.session("f(\u00e4)+(")
        self.assertLess(caught.exception.position, len("f(\u00e4)+("))

    def test_bad_names_are_refused(self):
        for name in ("", "7", "a b", "_"):
            with self.assertRaises(mirlow.Error):
                self.session[name] = 1
        with self.assertRaises(ValueError):
            self.session("1\0+1")

    def test_leave_the_session_as_it_is(self):
        self.session["x"] = 1
        for expression in ("", "((", "x+", "1 2", "f(1)"):
            with self.assertRaises(mirlow.Error):
                self.session(expression)
        self.assertEqual(self.session("x"), 1)


class Prepared(unittest.TestCase):
    def setUp(self):
        self.session = mirlow.Session()

    def test_follow_what_they_name(self):
        square = self.session.prepare("x*x+1")
        with self.assertRaisesRegex(mirlow.Error, "Unknown symbol 'x'"):
            square()
        for value in (0, 3, -0.5):
            self.session["x"] = value
            self.assertEqual(square(), value * value + 1)
            self.assertEqual(square(x=value + 1), (value + 1) ** 2 + 1)
            self.assertEqual(self.session["x"], value + 1)

    def test_give_any_value(self):
        double = self.session.prepare("2*x")
        self.assertEqual(double(x=[1, 2]), [2, 4])
        self.assertEqual(double(x=2), 4)
        self.session.refer("x", "y+1")
        self.assertEqual((self.session.prepare("x")(y=3), double()), (4, 8))
        self.session.run("s:Symbol")
        self.assertEqual(self.session.prepare("s")(), "s")

    def test_know_their_names(self):
        self.assertEqual(self.session.prepare("a*x*x+min(b, 1)").names, ["a", "x", "b"])

    def test_say_where_they_are_broken(self):
        for text, position in [("1+(2", 2), ("1+2)", 3), ("1+f(2)", 2), ("", 0)]:
            with self.assertRaises(mirlow.Error) as caught:
                self.session.prepare(text)
            self.assertEqual(caught.exception.position, position, text)

    def test_say_what_failed(self):
        with self.assertRaises(mirlow.Error) as caught:
            self.session.prepare("1+width")()
        self.assertEqual((caught.exception.position, caught.exception.length), (2, 5))
        with self.assertRaises(mirlow.Error):
            self.session.prepare("1")(**{"7": 1})
        self.session.limit(steps=3)
        with self.assertRaises(mirlow.LimitError):
            self.session.prepare("1+1+1+1")()

    def test_call_functions_which_may_raise(self):
        self.session.define("root", math.sqrt, 1)
        root = self.session.prepare("root(x)")
        self.assertEqual(root(x=9), 3)
        with self.assertRaises(ValueError):
            root(x=-1)

    def test_keep_their_session(self):
        three = mirlow.Session().prepare("1+2")
        gc.collect()
        self.assertEqual(three(), 3)


class Functions(unittest.TestCase):
    def setUp(self):
        self.session = mirlow.Session()

    def test_are_called_with_numbers(self):
        self.session.define("hypot", math.hypot, 2, pure=True)
        self.session.define("answer", lambda: 42, 0)
        self.assertEqual(self.session("hypot(3, 4)+answer()"), 47)

    def test_may_raise(self):
        self.session.define("root", math.sqrt, 1)
        with self.assertRaises(ValueError):
            self.session("1+root(-1)")
        self.assertEqual(self.session("root(4)"), 2)

    def test_need_a_name(self):
        with self.assertRaises(ValueError):
            self.session.define("a b", math.sqrt, 1)


class Limits(unittest.TestCase):
    def setUp(self):
        self.session = mirlow.Session()

    def test_end_what_uses_too_much(self):
        self.session.limit(steps=1000, nesting=100)
        for expression in ("1" + 5000 * "+1", 200 * "(1+" + "1" + 200 * ")"):
            with self.assertRaises(mirlow.LimitError):
                self.session(expression)
        for expression in ("!2.5", "<1>[1/0]"):
            with self.assertRaises(mirlow.Error):
                self.session(expression)
        self.assertEqual(self.session("1+1"), 2)
        self.session.limit()
        self.assertEqual(self.session("1" + 5000 * "+1"), 5001)

    def test_an_interruption_ends_what_is_under_way(self):
        self.session.define("stop", lambda: self.session.interrupt() or 0, 0)
        with self.assertRaises(mirlow.LimitError):
            self.session("stop()" + 5000 * "+1")
        self.assertEqual(self.session("1+1"), 2)


class Lines(unittest.TestCase):
    def test_print_what_the_prompt_would(self):
        session = mirlow.Session()
        self.assertEqual(session.run("x=1;x+1"), "\tDefining Scalar : x = 1\n\tScalar : 2\n")
        self.assertEqual(session.run("y"), "\tDefining Symbol : y\n")
        self.assertEqual(session.run("f(1)"), "\tError : Undefined function 'f'\n")


def load_tests(_loader, tests, _pattern):
    tests.addTests(doctest.DocTestSuite(mirlow))
    return tests


if __name__ == "__main__":
    unittest.main()
