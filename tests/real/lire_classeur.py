#!/usr/bin/env python3
"""Prints a workbook as JSON: its sheets, and of the first one its cells, rows and columns."""

import json
import sys

import openpyxl


def colour(value):
    return "#" + value.rgb[-6:].lower() if value is not None and value.type == "rgb" else None


workbook = openpyxl.load_workbook(sys.argv[1])
sheet = workbook.worksheets[0]
print(json.dumps({
    "feuilles": workbook.sheetnames,
    "nombre": sheet.max_row,
    "cellules": {cell.coordinate: {
        "texte": "" if cell.value is None else str(cell.value), "type": cell.data_type,
        "gras": bool(cell.font.b), "italique": bool(cell.font.i),
        "souligne": cell.font.u is not None, "couleur": colour(cell.font.color),
        "fond": cell.fill.fill_type and colour(cell.fill.fgColor),
        "horizontal": cell.alignment.horizontal, "vertical": cell.alignment.vertical,
        "lignes": bool(cell.alignment.wrap_text),
    } for row in sheet.iter_rows() for cell in row},
    "rangs": {n: {"hauteur": r.height, "fond": r.fill.fill_type and colour(r.fill.fgColor)}
              for n, r in sheet.row_dimensions.items()},
    "colonnes": {c: {"largeur": d.width} for c, d in sheet.column_dimensions.items()},
}))
