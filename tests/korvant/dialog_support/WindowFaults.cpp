// What is wrong with the look of a window.
#include "WindowLook.h"

#include "core/AfxWindow.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTreeView>
#include <QTreeWidget>
#include <set>

namespace {
using Faults = std::vector<std::string>;

std::string nameOf(const QWidget& widget) {
    const AfxWindow* const window = afxFind(&widget);
    std::string name = window != nullptr ? "control " + std::to_string(window->id) : std::string(widget.metaObject()->className());
    QString text = widget.windowTitle();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text = label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text = button->text();
    else if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        text = box->title();
    return text.isEmpty() ? name : name + " \"" + text.toStdString() + "\"";
}

QSize sizeOf(const QWidget& widget, const QString& text) {
    return QFontMetrics(widget.font()).size(Qt::TextShowMnemonic, text);
}

void needs(Faults& faults, const QWidget& widget, QSize needed, QSize given, const QString& what) {
    if (needed.width() > given.width() || needed.height() > given.height())
        faults.push_back(nameOf(widget) + ": " + what.toStdString() + " needs " + std::to_string(needed.width()) + " by " + std::to_string(needed.height()) +
                         " pixels and has " + std::to_string(given.width()) + " by " + std::to_string(given.height()));
}

// ---- texts that are cut off
void checkLabel(const QLabel& label, Faults& faults) {
    if (label.text().isEmpty())
        return;
    if (!label.wordWrap())
        return needs(faults, label, sizeOf(label, label.text()), label.size(), QStringLiteral("its text"));
    needs(faults, label, QSize(0, label.heightForWidth(label.width())), label.size(), QStringLiteral("its wrapped text"));
    for (const QString& word : label.text().split(QRegularExpression(QStringLiteral("\\s+"))))
        needs(faults, label, QSize(sizeOf(label, word).width(), 0), label.size(), QStringLiteral("its longest word"));
}

void checkButton(const QAbstractButton& button, Faults& faults) {
    if (button.text().isEmpty())
        return;
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const QStyle::SubElement part = qobject_cast<const QPushButton*>(&button) != nullptr    ? QStyle::SE_PushButtonContents
                                    : qobject_cast<const QRadioButton*>(&button) != nullptr ? QStyle::SE_RadioButtonContents
                                                                                             : QStyle::SE_CheckBoxContents;
    needs(faults, button, sizeOf(button, button.text()), button.style()->subElementRect(part, &option, &button).size(), QStringLiteral("its text"));
}

void checkTabs(const QTabBar& tabs, Faults& faults) {
    for (int i = 0; i < tabs.count(); ++i) {
        needs(faults, tabs, sizeOf(tabs, tabs.tabText(i)), tabs.tabRect(i).size(), QStringLiteral("the tab ") + tabs.tabText(i));
        if (tabs.tabRect(i).right() > tabs.width())
            faults.push_back(nameOf(tabs) + ": the tab " + tabs.tabText(i).toStdString() + " lies beyond the edge");
    }
}

void checkCombo(const QComboBox& combo, Faults& faults) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const QSize field = combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo).size();
    for (int i = 0; i < combo.count(); ++i)
        needs(faults, combo, sizeOf(combo, combo.itemText(i)), field, QStringLiteral("the entry ") + combo.itemText(i));
}

void checkTable(const QTreeView& table, Faults& faults) {
    const QHeaderView& header = *table.header();
    if (header.isHidden() || table.model() == nullptr)
        return;
    const int margin = 2 * (table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1);
    for (int column = 0; column < header.count(); ++column) {
        const QString title = table.model()->headerData(column, Qt::Horizontal).toString();
        needs(faults, table, sizeOf(header, title) + QSize(margin, 0), QSize(header.sectionSize(column), header.height()), QStringLiteral("the title ") + title);
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            const QString text = table.model()->index(row, column).data().toString();
            needs(faults, table, QSize(sizeOf(table, text).width() + margin, 0), QSize(header.sectionSize(column), 0), QStringLiteral("the cell ") + text);
        }
    }
    if (header.length() > table.viewport()->width())
        faults.push_back(nameOf(table) + ": the columns are wider than the list");
}

void checkTexts(const QWidget& widget, Faults& faults) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        checkLabel(*label, faults);
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget); button != nullptr && afxFind(button) != nullptr)
        checkButton(*button, faults);
    else if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        needs(faults, *box, QSize(sizeOf(*box, box->title()).width() + 16, 0), box->size(), QStringLiteral("its title"));
    else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        checkTabs(*tabs, faults);
    else if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        checkCombo(*combo, faults);
    else if (const auto* tree = qobject_cast<const QTreeView*>(&widget); tree != nullptr && qobject_cast<const QTreeWidget*>(tree) == nullptr)
        checkTable(*tree, faults);
    else if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        needs(faults, *field, QSize(0, QFontMetrics(field->font()).height()), field->size(), QStringLiteral("a line of text"));
}

// ---- places
// The part of a control that is seen: a label is no wider than its text.
QRect inkOf(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    if (label == nullptr || label->wordWrap() || !label->pixmap().isNull())
        return control.geometry();
    const QSize text = sizeOf(*label, label->text());
    if (label->text().isEmpty())
        return {};
    QRect ink(QPoint(), text.boundedTo(label->size()));
    const QRect place = label->geometry();
    const int x = (label->alignment() & Qt::AlignRight) != 0     ? place.right() - ink.width() + 1
                  : (label->alignment() & Qt::AlignHCenter) != 0 ? place.left() + (place.width() - ink.width()) / 2
                                                                  : place.left();
    ink.moveTo(x, place.top() + (place.height() - ink.height()) / 2);
    return ink;
}

QRect titleOf(const QGroupBox& box) {
    QStyleOptionGroupBox option;
    option.initFrom(&box);
    option.text = box.title();
    option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
    return box.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &box).translated(box.pos());
}

bool collide(const QWidget& one, const QWidget& other) {
    const QRect a = inkOf(one), b = inkOf(other);
    if (a.isEmpty() || b.isEmpty() || !a.intersects(b))
        return false;
    const auto* const boxA = qobject_cast<const QGroupBox*>(&one);
    const auto* const boxB = qobject_cast<const QGroupBox*>(&other);
    if (boxA != nullptr && a.contains(b))
        return titleOf(*boxA).intersects(b);
    if (boxB != nullptr && b.contains(a))
        return titleOf(*boxB).intersects(a);
    return true;
}

void checkPlaces(const CWnd& parent, Faults& faults) {
    std::vector<const QWidget*> shown;
    for (const CWnd* const child : parent.window()->children) {
        const QWidget* const widget = child->window()->widget;
        if (widget != nullptr && widget->isVisible())
            shown.push_back(widget);
    }
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (!shown[i]->parentWidget()->rect().contains(shown[i]->geometry()))
            faults.push_back(nameOf(*shown[i]) + ": lies beyond the edge of its window");
        for (std::size_t j = i + 1; j < shown.size(); ++j)
            if (collide(*shown[i], *shown[j]))
                faults.push_back(nameOf(*shown[i]) + " and " + nameOf(*shown[j]) + ": lie over one another");
    }
    for (const CWnd* const child : parent.window()->children)
        if (child->window()->kind == AfxKind::Dialog || child->window()->kind == AfxKind::Tab)
            checkPlaces(*child, faults);
}

// ---- words of another language
void addMenu(QMenu* menu, QStringList& texts) {
    const std::unique_ptr<QMenu> owned(menu);
    for (const QAction* const action : menu->actions())
        texts.append(action->text());
}

QStringList textsOf(const QWidget& widget) {
    QStringList texts{widget.toolTip(), widget.isWindow() ? widget.windowTitle() : QString()};
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        texts.append(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        texts.append(button->text());
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        texts.append(box->title());
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        for (int i = 0; i < tabs->count(); ++i)
            texts.append(tabs->tabText(i));
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < combo->count(); ++i)
            texts.append(combo->itemText(i));
    if (const auto* view = qobject_cast<const QTreeView*>(&widget); view != nullptr && view->model() != nullptr)
        for (int column = 0; column < view->model()->columnCount(); ++column)
            texts.append(view->model()->headerData(column, Qt::Horizontal).toString());
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
        texts.append(field->placeholderText());
        addMenu(const_cast<QLineEdit*>(field)->createStandardContextMenu(), texts);
    }
    if (const auto* page = qobject_cast<const QPlainTextEdit*>(&widget))
        addMenu(const_cast<QPlainTextEdit*>(page)->createStandardContextMenu(), texts);
    return texts;
}

// Words that a window of this toolkit shows where nobody put its own language; none is a Hungarian word.
bool isForeign(const QString& word) {
    static const std::set<QString> words = [] {
        std::set<QString> list;
        const char* const text = "cancel close open save apply help yes browse file files name names size type date modified select delete remove add "
                                 "settings properties copy paste undo redo cut the and not look directory folder drive computer choose back forward "
                                 "parent create new detail details view rename show hidden sidebar insert unicode control character search find "
                                 "error warning information question abort retry ignore discard reset restore defaults link location unknown bytes";
        for (const QString& word : QString::fromLatin1(text).split(u' '))
            list.insert(word);
        return list;
    }();
    return words.count(word.toLower()) != 0;
}

void checkWords(const QWidget& widget, Faults& faults) {
    static const QRegularExpression paths(QStringLiteral("\\S*[\\\\/]\\S*|\\S+\\.\\p{L}+"));
    for (QString text : textsOf(widget)) {
        text.remove(u'&');
        text.remove(paths); // files have the names they have
        for (const QString& word : text.split(QRegularExpression(QStringLiteral("[^\\p{L}]+")), Qt::SkipEmptyParts))
            if (isForeign(word))
                faults.push_back(nameOf(widget) + ": the word \"" + word.toStdString() + "\" in \"" + text.toStdString() + "\"");
    }
}

std::vector<const QWidget*> shownWidgets(const QWidget& top) {
    std::vector<const QWidget*> widgets{&top};
    for (const QWidget* const widget : top.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == top.window())
            widgets.push_back(widget);
    return widgets;
}
} // namespace

std::vector<std::string> windowFaults(const CWnd& window) {
    Faults faults;
    for (const QWidget* const widget : shownWidgets(*window.window()->widget)) {
        checkTexts(*widget, faults);
        checkWords(*widget, faults);
    }
    checkPlaces(window, faults);
    return faults;
}

std::vector<std::string> foreignWordsOfFileWindow(bool open) {
    QFileDialog window(nullptr, QString(), QStringLiteral("/"));
    window.setOption(QFileDialog::DontUseNativeDialog);
    window.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    Faults faults;
    for (const QWidget* const part : window.findChildren<QWidget*>())
        checkWords(*part, faults);
    checkWords(window, faults);
    return faults;
}
