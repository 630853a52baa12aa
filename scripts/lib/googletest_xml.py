"""Results in GoogleTest's XML, for runs of what is no GoogleTest program."""

import os
import xml.etree.ElementTree as xml
from pathlib import Path


def write(suite, results):
    """Leaves the results, pairs of a test's name and what failed (None: nothing), where GTEST_OUTPUT wants them."""
    kind, _, path = os.environ.get("GTEST_OUTPUT", "").partition(":")
    if kind != "xml":
        return
    suites = xml.Element("testsuites")
    parent = xml.SubElement(suites, "testsuite", name=suite)
    for name, failure in results:
        case = xml.SubElement(parent, "testcase", name=name, classname=suite, status="run")
        if failure:
            xml.SubElement(case, "failure", message=failure)
    Path(path).parent.mkdir(parents=True, exist_ok=True)
    xml.ElementTree(suites).write(path)
