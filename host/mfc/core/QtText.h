// Text, colours and rectangles between the API and the toolkit.
#pragma once

#include "CRect.h"
#include "CString.h"

#include <QColor>
#include <QRect>
#include <QString>

inline QString toQt(const std::wstring& text) { return QString::fromStdWString(text); }
inline QString toQt(LPCTSTR text) { return text == nullptr ? QString() : QString::fromWCharArray(text); }
inline std::wstring toWide(const QString& text) { return text.toStdWString(); }
inline QColor toQt(COLORREF color) { return QColor(GetRValue(color), GetGValue(color), GetBValue(color)); }
inline QRect toQt(const CRect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); }
inline QPoint toQt(CPoint p) { return QPoint(p.x, p.y); }
inline CPoint fromQt(QPoint p) { return CPoint(p.x(), p.y()); }
inline CRect fromQt(const QRect& r) { return CRect(r.x(), r.y(), r.x() + r.width(), r.y() + r.height()); }
// Line ends: "\r\n" in the API, "\n" in the toolkit.
inline QString toQtLines(LPCTSTR text) { return toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")); }
