#include "EdHostCommands.h"

#include "AcEdCommandStack.h"
#include "DwgCodec.h"
#include "core/EdCommandRunner.h"

namespace {
struct Row {
    const wchar_t* name;
    AcRxFunctionPtr function;
    int flags = 0;
};
constexpr int kShows = kEdKeepsPickFirst | kEdNoUndoGroup; // changes nothing in the drawing
constexpr Row kRows[] = {
    {L"NEW", edCmdNew, kEdNoUndoGroup},
    {L"OPEN", edCmdOpen, kEdNoUndoGroup},
    {L"QSAVE", edCmdQSave, kShows},
    {L"SAVEAS", edCmdSaveAs, kShows},
    {L"CLOSE", edCmdClose, kEdNoUndoGroup},
    {L"QUIT", edCmdQuit, kEdNoUndoGroup},
    {L"SWITCHWINDOWS", edCmdSwitchWindows, kShows},
    {L"APPLOAD", edCmdAppLoad, kEdNoUndoGroup},
    {L"ARX", edCmdArx, kEdNoUndoGroup},
    {L"LINE", edCmdLine},
    {L"PLINE", edCmdPline},
    {L"CIRCLE", edCmdCircle},
    {L"ARC", edCmdArc},
    {L"ELLIPSE", edCmdEllipse},
    {L"POINT", edCmdPoint},
    {L"SOLID", edCmdSolid},
    {L"SPLINE", edCmdSpline},
    {L"TEXT", edCmdText},
    {L"MTEXT", edCmdMText},
    {L"HATCH", edCmdHatch},
    {L"ATTDEF", edCmdAttDef},
    {L"BLOCK", edCmdBlock},
    {L"INSERT", edCmdInsert},
    {L"SELECT", edCmdSelect, kShows},
    {L"ERASE", edCmdErase},
    {L"MOVE", edCmdMove},
    {L"COPY", edCmdCopy},
    {L"ROTATE", edCmdRotate},
    {L"SCALE", edCmdScale},
    {L"MIRROR", edCmdMirror},
    {L"EXPLODE", edCmdExplode},
    {L"UNDO", edCmdUndo, kEdNoUndoGroup},
    {L"U", edCmdU, kEdNoUndoGroup},
    {L"REDO", edCmdRedo, kEdNoUndoGroup},
    {L"LAYER", edCmdLayer},
    {L"LINETYPE", edCmdLinetype},
    {L"STYLE", edCmdStyle},
    {L"COLOR", edCmdColor},
    {L"CANNOSCALE", edCmdCAnnoScale, kEdKeepsPickFirst},
    {L"SCALELISTEDIT", edCmdScaleListEdit},
    {L"SETVAR", edCmdSetVar, kEdKeepsPickFirst},
    {L"REGEN", edCmdRegen, kShows},
    {L"ZOOM", edCmdZoom, kEdKeepsPickFirst},
    {L"PLOT", edCmdPlot, kShows},
    {L"LIST", edCmdList, kShows},
    {L"DIST", edCmdDist, kShows},
    {L"AREA", edCmdArea, kShows},
    {L"COUNT", edCmdCount, kShows},
    {L"FILERLIST", edCmdFilerList, kShows},
    {L"DRAWLIST", edCmdDrawList, kShows},
    {L"GRIPLIST", edCmdGripList, kShows},
    {L"GRIPDRAG", edCmdGripDrag, kEdKeepsPickFirst},
    {L"GRIPCLICK", edCmdGripClick, kEdKeepsPickFirst},
    {L"RIBBON", edCmdRibbon, kShows},
    {L"NETLOAD", edCmdNetLoad, kShows},
    {L"EXPORTC3DDRAWING", edCmdExportC3D, kShows},
};
} // namespace

void edRegisterHostCommands() {
    dwgInstallCodec(); // drawings are opened and saved by these commands
    AcEdCommandStack* const stack = acedRegCmds();
    // A second call finds each name taken in the group and changes nothing.
    for (const Row& row : kRows)
        stack->addCommand(kEdHostGroup, row.name, row.name, row.flags, row.function);
}
