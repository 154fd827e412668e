#!/usr/bin/env python3
"""Holds documents against their schema, and tells each that does not fit with the place and the reason.

usage: check_documents.py SCHEMA DOCUMENT...
"""
import json
import sys

import jsonschema

with open(sys.argv[1], encoding="utf-8") as file:
    schema = json.load(file)
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
misfits = 0
for path in sys.argv[2:]:
    with open(path, encoding="utf-8") as file:
        document = json.load(file)
    for error in validator.iter_errors(document):
        print(f"{path}: {error.json_path}: {error.message}")
        misfits += 1
sys.exit(misfits > 0)
