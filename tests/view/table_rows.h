// The tables of tests/data/view.
#pragma once

#include <QColor>
#include <QFile>
#include <QList>
#include <QPoint>
#include <QStringList>

/// What stands between the bars of a row, without the blanks around.
struct TableRow
{
    double number(int i) const { return fields.at(i).toDouble(); }
    QPoint pixel(int i) const { return {fields.at(i).toInt(), fields.at(i + 1).toInt()}; }
    QColor colour(int i) const { return QColor(fields.at(i)); }
    QString operator[](int i) const { return fields.at(i); }

    QStringList fields;
    QByteArray what;  // the first field
};

/// The rows of a table; lines that begin with "#" are remarks.
inline QList<TableRow> tableRows(const char* name)
{
    QFile file(QStringLiteral(TEST_DATA "/view/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", name);
    QList<TableRow> rows;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#'))
            continue;
        TableRow row;
        for (const QString& field : line.split('|'))
            row.fields << field.trimmed();
        row.what = row.fields[0].toUtf8();
        rows << row;
    }
    return rows;
}
