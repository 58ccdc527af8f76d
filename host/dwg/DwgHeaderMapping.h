// Header variables between a file's table and a database's map of names.
#pragma once

#include "DwgFieldStreams.h"
#include "DwgHeaderVars.h"

void dwgHeaderToDatabase(const DwgHeaderVars& vars, const DwgFile& file, const DwgIdSource& ids);
// Variables that the drawing does not know keep the values of a new drawing.
void dwgHeaderFromDatabase(AcDbDatabase& db, DwgHeaderVars& vars);
// The header's row that names the control object of a table, with the table's class.
struct DwgTableRow {
    const wchar_t* variable;
    AcRxClass* (*desc)();
};
const std::vector<DwgTableRow>& dwgTableRows();
