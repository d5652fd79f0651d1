// Lists that leave the window in other forms than its own text: files by their ending, and the clipboard.

#include "view/vorlix_view.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>

#include "engine/aos_list.h"
#include "exports/rows.h"
#include "record/files.h"
#include "record/keep.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "reports/save_forms.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

/// The report on show as lines.
std::string reportText()
{
    std::string text;
    for (int line = 0; line < outdata->nlines; ++line)
        (text += lineText(*outdata, line)) += '\n';
    return text;
}

/// The report as a table of one column.
std::string reportCsv()
{
    static constexpr ListColumn columns[] = {{"line", nullptr}};
    std::string text = csvHeader(columns);
    for (int line = 0; line < outdata->nlines; ++line)
        text += csvLine(columns, {std::string(lineText(*outdata, line))});
    return text;
}

}  // namespace

/// The passes of the prime satellite into the save file, in the form of its ending.
void VorlixView::saveListInForm(ListForm form)
{
    const Keep kind(indata->iridflg);
    const Keep flareMagnitude(indata->flrmgf, false);
    if (chooseEventKind(indata) && !askDistance())
        return;
    std::string text;
    if (!calculated([&] { text = passListText(indata, form, searchStyle()); }))
        return;
    const std::string why = writeInForm(indata, form, text);
    if (why.empty())
        inform(this, tr("Vorlix"), tr("Saved on File ") + fieldQString(indata->savename));
    else
        warn(this, tr("Vorlix"), nothingWritten(fieldQString(indata->savename), textQString(why)));
}

/// As AllSatAos, in the form of the save file's ending. @return  what AllSatAos returns
int VorlixView::listAllInForm(ListForm form, std::string& why)
{
    std::optional<std::string> text;
    if (!calculated([&] { text = allPassesText(indata, form, searchStyle()); }))
        return calculationCancelled;
    if (!text)
        return 2;
    why = writeInForm(indata, form, *text);
    return why.empty() ? 0 : 1;
}

/// The table on show in another form, from the record that it was made with; nothing if there is none.
std::optional<std::string> VorlixView::tableInForm(ListForm form)
{
    if (!listedRecord || outdata->nlines == 0 || !reportIsTable())
        return std::nullopt;
    WinpData record = *listedRecord;
    record.sgpsat = noSlot;
    std::optional<std::string> text;
    const bool whole = calculated([&] {
        if (listed == Listed::mirrorFlares)
            text = mirrorFlaresText(&record, form);
        else if (listed == Listed::matches)
            text = matchesText(&record, form);
        else
            text = passListText(&record, form, {listedThorough, listedHorizon.get()});
    });
    indata->sgpsat = noSlot;
    return whole ? text : std::nullopt;
}

/// Whether the report is still the table that `listedRecord` belongs to.
bool VorlixView::reportIsTable() const
{
    return reportText() == listedText;
}

void VorlixView::noteListed(Listed what)
{
    listed = what;
    listedRecord = std::make_unique<WinpData>(*indata);
    listedText = reportText();
    listedThorough = thorough;
    listedHorizon = horizon;
}

bool VorlixView::vExport(const QString& name)
{
    const std::string path = QFile::encodeName(name).toStdString();
    const std::optional<ListForm> form = formOfName(path);
    std::optional<std::string> text = form ? tableInForm(*form) : std::optional(reportText());
    if (!text && form == ListForm::csv)
        text = reportCsv();
    if (!text) {
        inform(this, tr("Export"), tr("*** This report has no such form: choose a name that ends in .txt or .csv"));
        return false;
    }
    const std::string why = replaceFile(path.c_str(), *text);
    if (!why.empty())
        warn(this, tr("Export"), nothingWritten(name, textQString(why)));
    return why.empty();
}

void VorlixView::vCopy()
{
    auto* copy = new QMimeData;
    copy->setText(textQString(reportText()));
    copy->setData(QStringLiteral("text/csv"),
                  QByteArray::fromStdString(tableInForm(ListForm::csv).value_or(reportCsv())));
    QGuiApplication::clipboard()->setMimeData(copy);
}
