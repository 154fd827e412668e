"""Renders a project as the statements that its models stand for, in the order in which they read each other, and then
the queries of its tests. The model of a test is called MODEL in its query. Texts are parted by lines of the sign |."""

import re
import sys
from pathlib import Path

import jinja2
import yaml

folder = Path(sys.argv[1])
project = yaml.safe_load((folder / "dbt_project.yml").read_text())
usual = project["models"][project["name"]]["+materialized"]
known = {
    (source["name"], table["name"])
    for source in yaml.safe_load((folder / "models/sources.yml").read_text())["sources"]
    for table in source["tables"]
}
files = {path.stem: path.read_text() for path in folder.glob("models/**/*.sql")}


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


def source(name, table):
    assert (name, table) in known, (name, table)
    return quoted(table)


class Model:
    def __init__(self, name):
        self.config = {"materialized": usual, "alias": name}
        self.reads = []
        for read in re.findall(r"-- depends_on: .*ref\('(\w+)'\)", files[name]):
            assert read in files, read
        first = self.render(name)
        self.sql = self.render(name)
        assert first or self.sql

    def render(self, name):
        def ref(other):
            self.reads.append(other)
            return quoted(models[other].config["alias"] if other in models else other)

        return jinja2.Environment(undefined=jinja2.StrictUndefined).from_string(files[name]).render(
            config=lambda **given: self.config.update(given) or "",
            ref=ref,
            source=source,
            this=quoted(self.config["alias"]),
            is_incremental=lambda: self.config["materialized"] == "incremental",
        )


models = {}
for name in sorted(files):
    models[name] = Model(name)
texts = []
done = set()


def build(name):
    if name in done:
        return
    done.add(name)
    model = models[name]
    for read in model.reads:
        build(read)
    relation = quoted(model.config["alias"])
    if model.config["materialized"] == "view":
        texts.append(f"DROP VIEW IF EXISTS {relation} CASCADE")
        texts.append(f"CREATE VIEW {relation} AS {model.sql}")
    elif model.config["materialized"] == "table":
        texts.append(f"CREATE TABLE {quoted(name + '__tmp')} AS {model.sql}")
        texts.append(f"DROP TABLE IF EXISTS {relation} CASCADE")
        texts.append(f"ALTER TABLE {quoted(name + '__tmp')} RENAME TO {relation}")
    else:
        texts.append(f"INSERT INTO {relation} {model.sql}")


# What nothing holds back runs early: loads first.
for name in sorted(models, key=lambda name: (name.startswith("load_"), name), reverse=True):
    build(name)

macros = "".join(path.read_text() for path in sorted(folder.glob("tests/generic/*.sql")))
macros = macros.replace("{% test ", "{% macro ").replace("{% endtest %}", "{% endmacro %}")
own = jinja2.Template(macros).module


def test_query(test, column):
    name, given = (test, {}) if isinstance(test, str) else next(iter(test.items()))
    if name == "not_null":
        return f"SELECT * FROM MODEL WHERE {column} IS NULL"
    if name == "unique":
        return f"SELECT {column} FROM MODEL WHERE {column} IS NOT NULL GROUP BY {column} HAVING COUNT(*) > 1"
    if name == "relationships":
        to = jinja2.Template("{{ " + given["to"] + " }}").render(ref=quoted, source=source)
        return f"SELECT * FROM MODEL WHERE {column} NOT IN (SELECT {given['field']} FROM {to} WHERE {given['field']} IS NOT NULL)"
    rendered = {key: value if isinstance(value, list) else jinja2.Template(value).render() for key, value in given.items()}
    return getattr(own, name)("MODEL", **rendered)


for described in yaml.safe_load((folder / "models/schema.yml").read_text())["models"]:
    assert described["name"] in models and described["description"]
    for test in described.get("tests", []):
        texts.append(f"TEST {described['name']} {test_query(test, None)}")
    for column in described["columns"]:
        for test in column.get("tests", []):
            texts.append(f"TEST {described['name']} {test_query(test, quoted(column['name']))}")
print("\n|\n".join(texts))
