#include "dialogs/st_brightest_dialog.h"

#include "dialogs/form.h"
#include "exports/lists.h"
#include "record/text.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

enum Column
{
    start,
    maximum,
    end,
    magnitude,
    from,
    satellite,
    columns
};

constexpr int sortRole = Qt::UserRole, passRole = Qt::UserRole + 1;
constexpr int startWidth = 900, startHeight = 520;
constexpr std::size_t stampRoom = 77;

/// A row that sorts by number where its column has one.
class Row : public QTreeWidgetItem
{
public:
    bool operator<(const QTreeWidgetItem& other) const override
    {
        const int column = treeWidget()->sortColumn();
        const QVariant one = data(column, sortRole), two = other.data(column, sortRole);
        return one.isValid() && two.isValid() ? one.toDouble() < two.toDouble() : text(column) < other.text(column);
    }
};

QString stamp(const Pass& pass, int k, double zoneHours)
{
    char text[stampRoom] = {};
    aosstr(pass.tm[k] + zoneHours / 24.0, pass.b[k], pass.a[k], text, k != start);
    return textQString(fieldText(text)).trimmed();
}

QString magnitudeText(const BrightPass& pass)
{
    const auto tenths = [](double value) { return QString::fromStdString(fixedNumber(value, 1)); };
    return StBrightestDialog::tr("%1 +-%2").arg(tenths(pass.best.magnitude), tenths(pass.spread));
}

}  // namespace

StBrightestDialog::StBrightestDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Brightest Passes"));
    auto* column = new QVBoxLayout;
    aboutLabel = form::addText(column, "aboutLabel", QString());
    addConditions(column);
    addTree(column);
    countLabel = form::addText(column, "countLabel", tr("\"Search\" lists the passes."));
    countLabel->setWordWrap(true);
    addButtons(column);
    setLayout(column);
    resize(startWidth, startHeight);
    setValues({});
}

void StBrightestDialog::addConditions(QVBoxLayout* column)
{
    auto* row = new QHBoxLayout;
    auto* rows = new QFormLayout;
    magnitudeEdit = form::addEdit(rows, "magnitudeEdit", tr("&Faintest Magnitude:"),
                                  {tr("Passes that stay fainter than this are left out, -10 to 29.")});
    row->addLayout(rows);
    skyBox = form::addBox(row, "skyBox", tr("&Twilight and Moon"), nullptr,
                          {tr("If marked, passes are left out that twilight or moonlight hide from the unaided eye "
                              "where the satellite is brightest.")});
    nightBox = form::addBox(row, "nightBox", tr("Whole &Night"), nullptr,
                            {tr("If marked, the night of the date that is set, from sunset to sunrise of the place; "
                                "otherwise the time from that date on, as long as the duration says.")});
    joinBox = form::addBox(row, "joinBox", tr("&Join Launches"), nullptr,
                           {tr("If marked, passes of one launch within ten minutes of each other are one line, with "
                               "their number; it can be opened.")});
    row->addStretch(1);
    column->addLayout(row);
    connect(joinBox, &QCheckBox::toggled, this, &StBrightestDialog::showList);
}

void StBrightestDialog::addTree(QVBoxLayout* column)
{
    tree = new QTreeWidget;
    tree->setObjectName(QStringLiteral("passTree"));
    tree->setAccessibleName(tr("Passes"));
    tree->setWhatsThis(
        tr("One line for each pass: start, maximum and end with azimuth and elevation, the magnitude where it is "
           "brightest with its standard deviation, where the magnitude comes from, and the satellite. A click on a "
           "heading sorts by that column. A double click or Return opens the pass step by step."));
    tree->setHeaderLabels(
        {tr("Start (Azim.,Elev.)"), tr("Maximum"), tr("End"), tr("Mag."), tr("From"), tr("Satellite")});
    tree->setUniformRowHeights(true);
    tree->setAlternatingRowColors(true);
    tree->setSortingEnabled(true);
    tree->sortByColumn(magnitude, Qt::AscendingOrder);
    tree->header()->setSectionResizeMode(QHeaderView::Interactive);
    column->addWidget(tree, 1);
    connect(tree, &QTreeWidget::itemActivated, this, &StBrightestDialog::showDetails);
    connect(tree, &QTreeWidget::currentItemChanged, this, [this] {
        for (QPushButton* button : {detailsButton, mapButton, skyButton})
            button->setEnabled(chosen() != nullptr);
    });
}

void StBrightestDialog::addButtons(QVBoxLayout* column)
{
    auto* row = new QHBoxLayout;
    QPushButton* searchButton = form::addButton(row, "searchButton", tr("&Search"), nullptr,
                                                {tr("Searches every satellite of the element file. The magnitudes "
                                                    "are those of \"Magnitudes\" in the Settings "
                                                    "menu. Escape ends the search.")});
    searchButton->setDefault(true);
    row->addStretch(1);
    detailsButton = form::addButton(row, "detailsButton", tr("&Details"), nullptr,
                                    {tr("Shows the chosen pass step by step, by \"Time Step\" of the View menu.")});
    mapButton =
        form::addButton(row, "mapButton", tr("&Map"), nullptr,
                        {tr("Selects the satellite, closes the list, and shows the map at the brightest moment "
                            "of the pass.")});
    skyButton =
        form::addButton(row, "skyButton", tr("S&ky"), nullptr,
                        {tr("Selects the satellite, closes the list, and shows the sky at the brightest moment "
                            "of the pass.")});
    copyButton = form::addButton(row, "copyButton", tr("Co&py"), nullptr,
                                 {tr("Copies the list to the clipboard as lines of comma separated values.")});
    for (QPushButton* button : {detailsButton, mapButton, skyButton, copyButton}) {
        button->setAutoDefault(false);
        button->setEnabled(false);
    }
    auto* closeButton = form::addButton(row, "closeButton", tr("&Close"), nullptr,
                                        {tr("Closes the window; the list is kept for the next time.")});
    closeButton->setAutoDefault(false);
    column->addLayout(row);
    connect(searchButton, &QPushButton::clicked, this, &StBrightestDialog::search);
    connect(detailsButton, &QPushButton::clicked, this, &StBrightestDialog::showDetails);
    connect(mapButton, &QPushButton::clicked, this, [this] { end(Wanted::map); });
    connect(skyButton, &QPushButton::clicked, this, [this] { end(Wanted::sky); });
    connect(copyButton, &QPushButton::clicked, this, &StBrightestDialog::copy);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
}

void StBrightestDialog::setUp(const Setup& setup)
{
    want = Wanted::nothing;
    if (setup.about != given.about || setup.zoneHours != given.zoneHours) {
        list = {};
        searched = false;
    }
    given = setup;
    aboutLabel->setText(given.about);
    showList();
}

void StBrightestDialog::setValues(const Values& values)
{
    form::setNumber(magnitudeEdit, values.faintest);
    skyBox->setChecked(values.sky);
    nightBox->setChecked(values.night);
    joinBox->setChecked(values.joined);
}

StBrightestDialog::Values StBrightestDialog::values() const
{
    return {std::clamp(form::number(magnitudeEdit), -10.0, 29.0), skyBox->isChecked(), nightBox->isChecked(),
            joinBox->isChecked()};
}

void StBrightestDialog::search()
{
    std::optional<BrightList> found = given.search(values());
    if (!found)
        return;
    list = std::move(*found);
    searched = true;
    showList();
    tree->setFocus();
}

QTreeWidgetItem* StBrightestDialog::rowOf(std::size_t index) const
{
    const BrightPass& pass = list.passes[index];
    auto* row = new Row;
    for (const int k : {start, maximum, Column::end}) {
        row->setText(k, stamp(pass.pass, k, given.zoneHours));
        row->setData(k, sortRole, pass.pass.tm[k]);
    }
    row->setText(magnitude, magnitudeText(pass));
    row->setData(magnitude, sortRole, pass.best.magnitude);
    row->setTextAlignment(magnitude, Qt::AlignRight | Qt::AlignVCenter);
    row->setText(from, textQString(sourceName(pass.source, pass.family)));
    row->setText(satellite, textQString(pass.name));
    row->setData(0, passRole, static_cast<qulonglong>(index));
    return row;
}

void StBrightestDialog::showList()
{
    tree->setSortingEnabled(false);
    tree->clear();
    std::vector<std::vector<std::size_t>> groups;
    if (joinBox->isChecked())
        groups = launchGroups(list.passes);
    else
        for (std::size_t k = 0; k < list.passes.size(); ++k)
            groups.push_back({k});
    QList<QTreeWidgetItem*> rows;
    for (const std::vector<std::size_t>& group : groups) {
        const auto brightest =
            *std::ranges::min_element(group, {}, [&](std::size_t k) { return list.passes[k].best.magnitude; });
        QTreeWidgetItem* head = rowOf(brightest);
        rows.append(head);
        if (group.size() == 1)
            continue;
        head->setText(satellite, tr("%1 and %2 more").arg(head->text(satellite), QString::number(group.size() - 1)));
        for (const std::size_t k : group)
            if (k != brightest)
                head->addChild(rowOf(k));
    }
    tree->addTopLevelItems(rows);
    tree->setSortingEnabled(true);
    for (int column = 0; column < columns; ++column)
        tree->resizeColumnToContents(column);
    if (!rows.isEmpty())
        tree->setCurrentItem(tree->topLevelItem(0));
    copyButton->setEnabled(!rows.isEmpty());
    if (searched)
        countLabel->setText(countText());
}

/// How many passes there are, what was left out, and how old the elements are.
QString StBrightestDialog::countText() const
{
    QStringList left;
    for (const auto& [count, what] :
         {std::pair{list.fainter, tr("%1 fainter")}, std::pair{list.hidden, tr("%1 lost in twilight or moonlight")},
          std::pair{list.unknown, tr("%1 of objects without a magnitude (\"Magnitudes\" in "
                                     "the Settings menu gives them one)")}})
        if (count > 0)
            left << what.arg(count);
    ElementAge worst;
    for (const BrightPass& pass : list.passes)
        worst = {std::max(worst.days, pass.age.days), std::max(worst.seconds, pass.age.seconds)};
    const QString age = list.passes.empty() ? QString()
                                            : ' ' + tr("Elements up to %1 days old: +-%2 s.")
                                                        .arg(worst.days, 0, 'f', 1)
                                                        .arg(worst.seconds, 0, 'f', worst.seconds < 0.95 ? 1 : 0);
    return (list.passes.size() == 1 ? tr("1 pass.") : tr("%1 passes.").arg(list.passes.size())) +
           (left.isEmpty() ? QString() : ' ' + tr("Left out: %1.").arg(left.join(", "))) + age;
}

const BrightPass* StBrightestDialog::chosen() const
{
    const QTreeWidgetItem* row = tree->currentItem();
    return row ? &list.passes[row->data(0, passRole).toULongLong()] : nullptr;
}

void StBrightestDialog::showDetails()
{
    if (const BrightPass* pass = chosen())
        given.details(*pass);
}

void StBrightestDialog::end(Wanted what)
{
    want = what;
    accept();
}

std::string StBrightestDialog::csv() const
{
    std::string text = csvHeader(brightPassColumns());
    const auto add = [&](const QTreeWidgetItem& row) {
        const BrightPass& pass = list.passes[row.data(0, passRole).toULongLong()];
        const auto& [tm, a, b] = pass.pass;
        const ListRow plain = passRow({pass.name, pass.norad, pass.designator},
                                      {{tm[0], tm[1], tm[2]}, {a[0], a[1], a[2]}, {b[0], b[1], b[2]}});
        text +=
            csvLine(brightPassColumns(), brightPassRow(plain, {pass.best.mjd, pass.best.magnitude, pass.spread,
                                                               std::string(sourceName(pass.source, pass.family))}));
    };
    for (int k = 0; k < tree->topLevelItemCount(); ++k) {
        const QTreeWidgetItem& head = *tree->topLevelItem(k);
        add(head);
        for (int child = 0; child < head.childCount(); ++child)
            add(*head.child(child));
    }
    return text;
}

void StBrightestDialog::copy() const
{
    auto* content = new QMimeData;
    const QByteArray text = QByteArray::fromStdString(csv());
    content->setText(QString::fromUtf8(text));
    content->setData(QStringLiteral("text/csv"), text);
    QGuiApplication::clipboard()->setMimeData(content);
}
