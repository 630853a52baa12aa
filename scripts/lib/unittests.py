"""Runs the unittest modules of a folder as one test run.

usage: unittests.py SUITE FOLDER
As a test run (GTEST_OUTPUT is set) it leaves its results there, in GoogleTest's XML.
"""

import sys
import unittest

import googletest_xml


class _Kept(unittest.TextTestResult):
    """Remembers how every test ended; one that is skipped has not been passed."""

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.ended = []

    def startTest(self, test):
        super().startTest(test)
        self.ended.append((test.id(), None))

    def _fail(self, test, reason):
        self.ended = [(name, failure) for name, failure in self.ended if name != test.id()]
        self.ended.append((test.id(), reason))

    def addSubTest(self, test, subtest, err):
        super().addSubTest(test, subtest, err)
        if err:
            self._fail(test, str(err[1]))

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._fail(test, str(err[1]))

    def addError(self, test, err):
        super().addError(test, err)
        self._fail(test, repr(err[1]))

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        self._fail(test, f"skipped: {reason}")


def main(suite, folder):
    tests = unittest.defaultTestLoader.discover(folder)
    result = unittest.TextTestRunner(resultclass=_Kept, stream=sys.stdout).run(tests)
    googletest_xml.write(suite, result.ended)
    return 0 if result.ended and all(failure is None for _, failure in result.ended) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
