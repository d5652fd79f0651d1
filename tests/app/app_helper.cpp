#include "app/app_helper.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QRegularExpression>
#include <QTextEdit>

#include "dialogs/form.h"
#include "record/text.h"
#include "record/wout_data.h"

namespace {

template <class Widget>
Widget* child(QDialog* dialog, const QString& name)
{
    auto* found = dialog->findChild<Widget*>(name);
    if (!found)
        qFatal("no %s in %s", qPrintable(name), qPrintable(dialog->windowTitle()));
    return found;
}

void mark(QDialog* dialog, const QString& box, bool on)
{
    if (child<QAbstractButton>(dialog, box)->isChecked() != on)
        windows::click(dialog, qPrintable(box));
    QCOMPARE(child<QAbstractButton>(dialog, box)->isChecked(), on);
}

/// Day of January 2018, time, timezone and, if given, duration; presses OK.
void enterDate(QDialog* dialog, const QStringList& words)
{
    mark(dialog, "systemBox", false);
    const QStringList time = words[1].split(':');
    const QStringList values{"2018", "1", words[0], time[0], time[1], time[2], words[2], words.value(3)};
    const char* const edits[] = {"yearEdit", "monthEdit", "dayEdit",   "hourEdit",
                                 "minEdit",  "secEdit",   "tzoneEdit", "durEdit"};
    for (qsizetype i = 0; i < words.size() + 4; ++i)
        windows::enter(dialog, edits[i], values[i]);
    windows::click(dialog, "okButton");
}

void chooseRow(QComboBox* box, int row)
{
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int k = 0; k < row; ++k)
        QTest::keyClick(box, Qt::Key_Down);
}

/// "Inclination (deg): 98.2044" of a field, the lines of a text, the text of a button.
QStringList look(QDialog* dialog, const QString& name)
{
    if (name == "title")
        return {dialog->windowTitle().trimmed()};
    auto* widget = child<QWidget>(dialog, name);
    if (auto* edit = qobject_cast<Field*>(widget))
        return {(form::labelOf(edit)->text().remove('&').trimmed() + ' ' + edit->text().trimmed()).trimmed()};
    if (auto* text = qobject_cast<QTextEdit*>(widget))
        return text->toPlainText().replace('\t', ' ').split('\n');
    if (auto* label = qobject_cast<QLabel*>(widget))
        return {label->text()};
    return {qobject_cast<QAbstractButton*>(widget)->text().remove('&')};
}

QStringList see(QDialog* dialog, const QStringList& names)
{
    QStringList seen;
    for (const QString& name : names)
        seen << look(dialog, name);
    if (const auto* box = qobject_cast<QMessageBox*>(dialog))
        seen << box->text().remove(QDir::currentPath() + '/').replace('\t', ' ').split('\n');
    return seen;
}

void actOn(QDialog* dialog, const QString& act, QStringList& seen)
{
    const QString first = act.section(' ', 0, 0);
    const QStringList words = act.split(' ', Qt::SkipEmptyParts).mid(1);
    const QString second = words.value(0);
    if (first == "accept")
        dialog->accept();
    else if (first == "reject")
        dialog->reject();
    else if (first == "date")
        enterDate(dialog, words);
    else if (first == "see")
        seen << see(dialog, words);
    else if (first == "press")
        windows::press(dialog, second);
    else if (first == "form")
        qobject_cast<QFileDialog*>(dialog)->selectNameFilter(act.section(' ', 1));
    else if (first == "number")
        dialog->findChild<QDoubleSpinBox*>()->setValue(second.toDouble());
    else if (first == "file") {
        child<QLineEdit>(dialog, "fileNameEdit")->setText(QDir::current().filePath(second));
        QTest::keyClick(child<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    } else if (second == "=")
        windows::enter(dialog, qPrintable(first), act.section(" = ", 1));
    else if (second == "on" || second == "off")
        mark(dialog, first, second == "on");
    else if (second == "row")
        chooseRow(child<QComboBox>(dialog, first), words[1].toInt());
    else if (act.endsWith(']'))
        QCOMPARE(windows::answering([&] { windows::click(dialog, qPrintable(first)); }, {[&](QDialog* inner) {
                                        for (const QString& within : act.section('[', 1).chopped(1).split("; "))
                                            actOn(inner, within, seen);
                                    }}),
                 1);
    else
        windows::click(dialog, qPrintable(first));
}

}  // namespace

QByteArray dataFile(const QString& name)
{
    QFile file(TEST_DATA "/app/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList report()
{
    QStringList lines;
    for (int i = 0; i < outdata->nlines; ++i)
        lines << textQString(lineText(*outdata, i));
    return lines;
}

void AppTest::prepare(const QByteArray& configuration)
{
    close();
    windows::stopTheClock();
    place = std::make_unique<windows::Workplace>();
    if (!configuration.isEmpty())
        place->write("vorlix.cfg", configuration);
}

void AppTest::start()
{
    app.reset();
    app = std::make_unique<VorlixApp>();
}

void AppTest::show()
{
    app->show();
    // no window manager gives the window back its keys when a dialog closes
    app->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(app.get()));
}

void AppTest::open(const QByteArray& configuration)
{
    prepare(configuration);
    start();
    show();
}

void AppTest::close()
{
    app.reset();
    place.reset();
}

void AppTest::choose(const QString& command, const Answers& answers)
{
    const QStringList words = command.split(' ');
    const QKeySequence key(command);
    QVERIFY2(action(command) || words.size() > 1 || key.count() == 1, qPrintable(command));
    if (key.count() == 1)
        show();
    const auto give = [&] {
        if (QAction* chosen = action(command))
            chosen->trigger();
        else if (words[0] == "click")
            QTest::mouseClick(canvas()->viewport(), Qt::LeftButton, {}, {words[1].toInt(), words[2].toInt()});
        else if (words[0] == "row")
            QTest::mouseClick(canvas()->viewport(), Qt::RightButton, {}, {50, epos[words[1].toInt()] + 6});
        else
            QTest::keyClick(app.get(), key[0].key(), key[0].keyboardModifiers());
    };
    const int came = windows::answering(give, answers);
    QVERIFY2(came == static_cast<int>(answers.size()), qPrintable(command + ": " + QString::number(came)));
}

AppTest::Answer AppTest::answer(const QString& acts, QStringList* seen)
{
    return [=](QDialog* dialog) {
        static const QRegularExpression betweenActs(R"(;\s*(?![^\[]*\]))");
        QStringList unseen;
        for (const QString& act : acts.trimmed().split(betweenActs))
            actOn(dialog, act, seen ? *seen : unseen);
    };
}

void AppTest::follow(const QString& commands, QStringList& seen)
{
    QStringList lines;
    static const QRegularExpression lineEnds(R"((?<!\\)\n)");
    for (QString line : commands.split(lineEnds))
        if (const QString words = line.remove("\\\n").simplified(); !words.isEmpty() && words[0] != '#')
            lines << words;
    for (qsizetype i = 0; i < lines.size() && !QTest::currentTestFailed();) {
        const QString command = lines[i++];
        if (command.startsWith('>')) {
            QVERIFY2(!seen.isEmpty(), qPrintable(command));
            QCOMPARE(seen.takeFirst(), command.mid(2));
            continue;
        }
        Answers answers;
        for (; i < lines.size() && lines[i].startsWith('|'); ++i)
            answers.push_back(answer(lines[i].mid(1), &seen));
        const QStringList words = command.split(' ');
        if (words[0] == "select")
            windows::select(command.mid(7));
        else if (words[0] == "keep" && keepers.contains(words[1]))
            keepers[words[1]](words.mid(2), seen);
        else
            choose(command, answers);
    }
}

QStringList AppTest::follow(const QString& commands)
{
    QStringList seen;
    follow(commands, seen);
    return seen;
}
