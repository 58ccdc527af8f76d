#include "dialog/AfxLayout.h"

#include "core/QtText.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace {
constexpr int kGap = 4; // pixels kept free between a text and its neighbour

QString textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button == nullptr ? QString() : button->text();
}

bool isBox(const QWidget& widget) {
    return qobject_cast<const QGroupBox*>(&widget) != nullptr;
}

bool sharesRows(const QRect& a, const QRect& b) {
    return a.top() <= b.bottom() && b.top() <= a.bottom();
}

// The free room beside a control: up to a neighbour in its rows, the frame around it, the dialog.
QRect roomOf(const QWidget& dialog, const QWidget& control, const std::vector<QWidget*>& controls) {
    const QRect own = control.geometry();
    int left = kGap, right = dialog.width() - kGap;
    for (const QWidget* other : controls) {
        if (other == &control || other->isHidden())
            continue;
        const QRect place = other->geometry();
        if (isBox(*other) && place.contains(own.center())) {
            left = std::max(left, place.left() + 2 * kGap);
            right = std::min(right, place.right() - 2 * kGap);
        } else if (sharesRows(place, own) && place.left() > own.left()) {
            right = std::min(right, place.left() - kGap);
        } else if (sharesRows(place, own) && place.right() < own.right()) {
            left = std::max(left, place.right() + kGap);
        }
    }
    return QRect(QPoint(std::min(left, own.left()), own.top()), QPoint(std::max(right, own.right()), own.bottom()));
}

// The width at which the text is whole. A push button's own wish is far wider than its text.
int neededWidth(const QWidget& control) {
    const auto* button = qobject_cast<const QPushButton*>(&control);
    if (button == nullptr)
        return control.sizeHint().width() + 1;
    return QFontMetrics(button->font()).size(Qt::TextShowMnemonic, button->text()).width() + 4 * kGap;
}

void grow(QWidget& control, const QRect& room, int needed) {
    QRect place = control.geometry();
    const auto* label = qobject_cast<QLabel*>(&control);
    const bool growsLeft = label != nullptr && (label->alignment() & Qt::AlignRight) != 0;
    const bool growsBoth = qobject_cast<QPushButton*>(&control) != nullptr || (label != nullptr && (label->alignment() & Qt::AlignHCenter) != 0);
    const int missing = needed - place.width();
    if (growsBoth) {
        place.setLeft(std::max(room.left(), place.left() - missing / 2));
        place.setRight(std::min(room.right(), place.left() + needed - 1));
    } else if (growsLeft) {
        place.setLeft(std::max(room.left(), place.left() - missing));
    } else {
        place.setRight(std::min(room.right(), place.right() + missing));
    }
    control.setGeometry(place);
}

// The height free below a label, up to the next control under it.
int heightBelow(const QWidget& dialog, const QWidget& control, const std::vector<QWidget*>& controls) {
    const QRect own = control.geometry();
    int bottom = dialog.height() - kGap;
    for (const QWidget* other : controls) {
        const QRect place = other->geometry();
        const bool isUnder = other != &control && !isBox(*other) && place.top() > own.bottom() && place.left() <= own.right() && place.right() >= own.left();
        if (isUnder)
            bottom = std::min(bottom, place.top() - 1);
        else if (isBox(*other) && place.contains(own.center()))
            bottom = std::min(bottom, place.bottom() - kGap);
    }
    return bottom - own.top();
}

void wrap(const QWidget& dialog, QLabel& label, const std::vector<QWidget*>& controls) {
    label.setWordWrap(true);
    const int needed = label.heightForWidth(label.width());
    if (needed > label.height())
        label.resize(label.width(), std::min(needed, std::max(label.height(), heightBelow(dialog, label, controls))));
    if (needed > label.height())
        label.setToolTip(label.text()); // no room anywhere: at least it can be read
}
} // namespace

QFont afxDialogFont(const RcDialog& source) {
    QFont font;
    // The names of the system's dialog fonts stand for this machine's interface font.
    static const wchar_t* kSystemFonts[] = {L"", L"MS Shell Dlg", L"MS Shell Dlg 2", L"MS Sans Serif", L"Tahoma", L"Segoe UI"};
    const bool isSystem = std::any_of(std::begin(kSystemFonts), std::end(kSystemFonts), [&](const wchar_t* name) { return source.fontFamily == name; });
    font.setFamily(isSystem ? QStringLiteral("DejaVu Sans") : toQt(source.fontFamily));
    font.setPointSize(source.fontSize);
    return font;
}

AfxUnits::AfxUnits(const QFont& font) {
    const QFontMetrics metrics(font);
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    mBaseX = std::max(4, (metrics.horizontalAdvance(letters) / 26 + 1) / 2);
    mBaseY = std::max(8, metrics.height());
}

void afxMakeTextsFit(QWidget& dialog, const std::vector<QWidget*>& controls) {
    for (QWidget* control : controls) {
        const QString text = textOf(*control);
        if (text.isEmpty())
            continue;
        const int needed = neededWidth(*control);
        auto* label = qobject_cast<QLabel*>(control);
        const bool isTall = label != nullptr && control->height() >= 2 * QFontMetrics(control->font()).lineSpacing() - 2;
        if (needed > control->width() && !isTall)
            grow(*control, roomOf(dialog, *control, controls), needed);
        if (label != nullptr && (isTall || needed > control->width()))
            wrap(dialog, *label, controls);
        else if (label != nullptr && control->height() < label->sizeHint().height())
            control->resize(control->width(), std::min(label->sizeHint().height(), std::max(control->height(), heightBelow(dialog, *control, controls))));
    }
}
