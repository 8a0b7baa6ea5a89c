"""Sums up the U-values in the output of "strativo-cli show --json"."""

import json
import sys


def u_values(path):
    with open(path, encoding="utf-8") as file:
        for construction in json.load(file)[0]["constructions"]:
            try:
                yield float(construction["result"])
            except ValueError:
                pass  # it has none


print(sum(u_values(sys.argv[1])))
