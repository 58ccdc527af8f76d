# Prints the cells of a workbook as xlrd reads them (see BiffTables.h for the form of a line).
import struct
import sys

import xlrd

book = xlrd.open_workbook(sys.argv[1], formatting_info=False)
out = []
for sheet in book.sheets():
    for row in range(sheet.nrows):
        for column in range(sheet.ncols):
            cell = sheet.cell(row, column)
            if cell.ctype == xlrd.XL_CELL_TEXT:
                value = "t|" + cell.value.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r")
            elif cell.ctype in (xlrd.XL_CELL_NUMBER, xlrd.XL_CELL_DATE):
                value = "n|" + struct.pack(">d", cell.value).hex()
            elif cell.ctype == xlrd.XL_CELL_BOOLEAN:
                value = "b|%d" % cell.value
            elif cell.ctype in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
                continue
            else:
                value = "?|%r" % cell.value
            out.append("%s|%d|%d|%s" % (sheet.name, row, column, value))
sys.stdout.buffer.write(("\n".join(out) + "\n").encode("utf-8"))
