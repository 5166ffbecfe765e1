#!/bin/sh
# Drawings of the pages can be read, and are small: pictures.sh TREE
command -v python3 >/dev/null || exit 77
cd "$1/docs/pictures" && exec python3 - *.svg <<'END'
import os, sys, xml.etree.ElementTree
for path in sys.argv[1:]:
    drawing = xml.etree.ElementTree.parse(path).getroot()
    assert drawing.tag.endswith("svg") and len(list(drawing.iter())) > 20, path
    assert os.path.getsize(path) < 60_000, path
END
