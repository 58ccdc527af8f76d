#include "CEdit.h"

#include "controls/AfxControlFactory.h"
#include "core/QtText.h"

#include <QLineEdit>
#include <QPlainTextEdit>

BEGIN_MESSAGE_MAP(CEdit, CWnd)
END_MESSAGE_MAP()

BOOL CEdit::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"Edit", nullptr, style | WS_CHILD, rect, parent, id);
}

void CEdit::SetSel(int start, int end) {
    if (auto* line = afxWidgetAs<QLineEdit>(*this)) {
        const int last = end < 0 ? static_cast<int>(line->text().size()) : end;
        if (start < 0)
            line->deselect();
        else
            line->setSelection(start, std::max(last - start, 0));
    } else if (auto* text = afxWidgetAs<QPlainTextEdit>(*this)) {
        QTextCursor cursor = text->textCursor();
        const int length = static_cast<int>(text->toPlainText().size());
        cursor.setPosition(start < 0 ? cursor.position() : std::min(start, length));
        if (start >= 0)
            cursor.setPosition(end < 0 ? length : std::min(end, length), QTextCursor::KeepAnchor);
        text->setTextCursor(cursor);
    }
}

void CEdit::GetSel(int& start, int& end) const {
    start = end = 0;
    if (const auto* line = afxWidgetAs<QLineEdit>(*this)) {
        start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
        end = start + static_cast<int>(line->selectedText().size());
    } else if (const auto* text = afxWidgetAs<QPlainTextEdit>(*this)) {
        start = text->textCursor().selectionStart();
        end = text->textCursor().selectionEnd();
    }
}

void CEdit::ReplaceSel(LPCTSTR text) {
    if (auto* line = afxWidgetAs<QLineEdit>(*this))
        line->insert(toQt(text));
    else if (auto* many = afxWidgetAs<QPlainTextEdit>(*this))
        many->insertPlainText(toQtLines(text));
}

void CEdit::SetReadOnly(BOOL readOnly) {
    ModifyStyle(readOnly ? 0 : ES_READONLY, readOnly ? ES_READONLY : 0);
}

void CEdit::SetLimitText(UINT characters) {
    if (auto* line = afxWidgetAs<QLineEdit>(*this))
        line->setMaxLength(characters == 0 ? 32767 : static_cast<int>(std::min(characters, 32767u)));
}

int CEdit::GetLineCount() const {
    const auto* text = afxWidgetAs<QPlainTextEdit>(*this);
    return text == nullptr ? 1 : text->blockCount();
}

BOOL CEdit::GetModify() const {
    if (const auto* line = afxWidgetAs<QLineEdit>(*this))
        return line->isModified() ? TRUE : FALSE;
    const auto* text = afxWidgetAs<QPlainTextEdit>(*this);
    return text != nullptr && text->document()->isModified() ? TRUE : FALSE;
}

void CEdit::SetModify(BOOL modified) {
    if (auto* line = afxWidgetAs<QLineEdit>(*this))
        line->setModified(modified != FALSE);
    else if (auto* text = afxWidgetAs<QPlainTextEdit>(*this))
        text->document()->setModified(modified != FALSE);
}
