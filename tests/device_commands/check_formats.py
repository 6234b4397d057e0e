#!/usr/bin/env python3
"""Checks one tree that orlo rendered in its four formats, given as four files: the
JSON and the XML parse, and the text and the CSV hold the elements and the fields of
the JSON, in its order.

  check_formats.py TEXT JSON XML CSV
"""
import csv
import json
import sys
import xml.dom.minidom

SHOWN = ("name", "description", "value")


def visible(text):
    """Control characters as text, CSV and XML show them."""
    return "".join("\\x%02X" % ord(c) if ord(c) < 0x20 or ord(c) == 0x7F else c for c in text)


def fields_of(element):
    return {key: value for key, value in element.items() if key != "children"}


def walk(element, level=0):
    """(level, fields) of each element that has fields, in document order; an element
    without fields has its children in its place."""
    fields = fields_of(element)
    if fields:
        yield level, fields
        level += 1
    for child in element.get("children", []):
        yield from walk(child, level)


def text_line(level, fields):
    name, description, value = (fields.get(key) for key in SHOWN)
    line = visible(name or "")
    if description:
        line = visible(description) + ("" if name is None else " [" + line + "]")
    if value is not None:
        line += ":" if value == "" else ": " + visible(value)
    for key, text in fields.items():
        if key not in SHOWN:
            line += ("(" if not line else " (") + key + ": " + visible(text) + ")"
    return "  " * level + line


def csv_row(level, fields):
    other = "; ".join(k + "=" + v for k, v in fields.items() if k not in SHOWN)
    return [str(level)] + [visible(fields.get(key, "")) for key in SHOWN] + [visible(other)]


def main(text_file, json_file, xml_file, csv_file):
    tree = json.load(open(json_file, encoding="utf-8"))
    elements = list(walk(tree))
    text = open(text_file, encoding="utf-8").read().splitlines()
    assert text == [text_line(*e) for e in elements], "the text differs from the JSON"
    rows = list(csv.reader(open(csv_file, encoding="utf-8", newline="")))
    assert rows[0] == ["Level", "Name", "Description", "Value", "Other"], rows[0]
    assert rows[1:] == [csv_row(*e) for e in elements], "the CSV differs from the JSON"
    xml.dom.minidom.parse(xml_file)


if __name__ == "__main__":
    main(*sys.argv[1:])
