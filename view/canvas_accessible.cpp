#include "view/canvas_accessible.h"

#include <algorithm>
#include <vector>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCoreApplication>

#include "view/vorlix_view.h"

namespace {

/// A row of the pass table: its only cell, which can be pressed.
class PassRow final : public QAccessibleInterface,
                      public QAccessibleTableCellInterface,
                      public QAccessibleActionInterface
{
public:
    PassRow(VorlixView* canvas, int number) : view(canvas), row(number) {}

    bool isValid() const override { return row < view->rowCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? view->rowText(row) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        const QRect onWidget = view->rowRect(row);
        return {view->mapToGlobal(onWidget.topLeft()), onWidget.size()};
    }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = state.focusable = true;
        state.selected = state.focused = isSelected();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface*>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface*>(this);
        return nullptr;
    }

    bool isSelected() const override { return view->markedRow() == row; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return 0; }
    int rowIndex() const override { return row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid())
            view->openRow(row);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    VorlixView* view;
    int row;
};

class Canvas final : public QAccessibleWidget, public QAccessibleTextInterface, public QAccessibleTableInterface
{
public:
    explicit Canvas(VorlixView* canvas) : QAccessibleWidget(canvas, QAccessible::Graphic), view(canvas) {}
    Q_DISABLE_COPY_MOVE(Canvas)
    ~Canvas() override { std::ranges::for_each(rows, QAccessible::deleteAccessibleInterface); }

    QAccessible::Role role() const override
    {
        if (view->hasRows())
            return QAccessible::Table;
        return view->showsText() ? QAccessible::Document : QAccessible::Graphic;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return view->spokenName();
        return kind == QAccessible::Description && !view->showsText() ? view->spokenText() : QString();
    }
    int childCount() const override { return view->rowCount(); }
    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= childCount())
            return nullptr;
        while (static_cast<int>(rows.size()) <= index)
            rows.push_back(
                QAccessible::registerAccessibleInterface(new PassRow(view, static_cast<int>(rows.size()))));
        return QAccessible::accessibleInterface(rows[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (int i = 0; i < childCount(); ++i)
            if (this->child(i) == child)
                return i;
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->rect().contains(x, y))
                return child(i);
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override { return child(view->markedRow()); }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::TableInterface && view->hasRows())
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    // the text can be read, and that is all
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override { return view->spokenText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(view->spokenText().size()); }
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int) const override { return child(row); }
    int selectedCellCount() const override { return selectedRowCount(); }
    QList<QAccessibleInterface*> selectedCells() const override
    {
        auto* const marked = focusChild();
        return marked ? QList<QAccessibleInterface*>{marked} : QList<QAccessibleInterface*>();
    }
    QString columnDescription(int) const override { return QCoreApplication::translate("VorlixView", "Pass"); }
    QString rowDescription(int row) const override { return view->rowText(row); }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return view->markedRow() >= 0 ? 1 : 0; }
    int columnCount() const override { return 1; }
    int rowCount() const override { return view->rowCount(); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return QList<int>(selectedRowCount(), view->markedRow()); }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return row == view->markedRow(); }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

private:
    VorlixView* view;
    mutable std::vector<QAccessible::Id> rows;
};

QAccessibleInterface* canvasInterface(const QString&, QObject* object)
{
    auto* const view = qobject_cast<VorlixView*>(object);
    return view ? new Canvas(view) : nullptr;
}

}  // namespace

void makeCanvasAccessible()
{
    static const bool once = [] {
        QAccessible::installFactory(canvasInterface);
        return true;
    }();
    Q_UNUSED(once);
}
