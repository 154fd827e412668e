#!/usr/bin/env python3
"""Plants faults in a small tree and expects check-layers to find each, and nothing else.

usage: layers_test.py CHECK-LAYERS
"""
import pathlib
import subprocess
import sys
import tempfile

LONG_FUNCTION = "void longOne() {\n" + "    step();\n" * 61 + "}\n"
LONG_TABLE = "void tableOne() {\n    static const int rows[] = {\n" + "        1,  // }\n" * 61 + "    };\n}\n"

# File, its content, and what must be said of it.
CASES = [
    ("canvas/up.h", '#include "zoom/zoom_form.h"\n', "canvas may not use zoom"),
    ("canvas/toolkit.cpp", "#include <QString>\n", "Qt belongs in qt and app"),
    ("attic/old.h", "\n", "is no room of the plan"),
    ("forms/one.h", '#include "forms/two.h"\n', ""),
    ("forms/two.h", '#include "forms/three.h"\n', ""),
    ("forms/three.h", '#include "forms/one.h"\n',
     "a circle of modules: forms/one, forms/three, forms/two"),
    ("odbc/low.h", "\n", ""),
    ("odbc/low.cpp", '#include "odbc/high.h"\n', ""),
    ("odbc/high.h", '#include "odbc/low.h"\n', "a circle of modules: odbc/high, odbc/low"),
    ("zoom/large.cpp", "\n" * 401, "401 lines; at most 400"),
    ("zoom/full.cpp", "\n" * 400, ""),
    ("zoom/large.h", "\n" * 201, "201 lines; at most 200"),
    ("zoom/function.cpp", LONG_FUNCTION, "longOne has 61 lines"),
    ("zoom/table.cpp", LONG_TABLE, ""),
]

with tempfile.TemporaryDirectory() as folder:
    for name, content, _ in CASES:
        path = pathlib.Path(folder, "src", name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content, encoding="utf-8")
    run = subprocess.run([sys.argv[1], folder], capture_output=True, text=True, check=False)
said = run.stdout.splitlines()
expected = [words for _, _, words in CASES if words]
missed = [words for words in expected if not any(words in line for line in said)]
if missed or run.returncode != 1 or len(said) != len(expected) + 1:
    sys.exit("missed: " + str(missed) + "\n" + run.stdout + run.stderr)
