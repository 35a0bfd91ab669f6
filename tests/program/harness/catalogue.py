"""What a catalogue file holds, as a reader sees it that shares no code with the program."""
import csv
import io
import subprocess

TABLE = "ListDonnees"


def rows(database):
    """The rows as dictionaries; Taille as a whole number."""
    run = subprocess.run(["mdb-export", str(database), TABLE], capture_output=True, check=True)
    if run.stderr:
        raise AssertionError(f"mdb-export complains: {run.stderr.decode(errors='replace')}")
    found = list(csv.DictReader(io.StringIO(run.stdout.decode("utf-8"), newline="")))
    for row in found:
        row["Taille"] = int(float(row["Taille"])) if row["Taille"] else None
    return found


def count(database):
    run = subprocess.run(["mdb-count", str(database), TABLE], capture_output=True, text=True,
                         check=True)
    return int(run.stdout)


def names(database):
    """The names of the media in the catalogue, in order."""
    return sorted({row["Compilation"] for row in rows(database)})
