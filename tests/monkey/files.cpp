// The folder in which the hand is let loose.

#include "monkey/hand.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace monkey {

namespace {

QByteArray sample(const char* name)
{
    QFile file(QStringLiteral(TEST_DATA "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const char* name, const QByteArray& bytes)
{
    QFile file(QString::fromLatin1(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray firstLines(const QByteArray& text, int lines)
{
    qsizetype end = 0;
    for (int i = 0; i < lines; ++i)
        end = text.indexOf('\n', end) + 1;
    return text.left(end);
}

}  // namespace

void layOutFiles()
{
    // few enough for a search through all of them to take less than a second
    write("visual.txt", firstLines(sample("elements/visual_2018.txt"), 24));
    write("numeric.txt", sample("saved_elements/numeric.txt"));
    write("iridium.txt", firstLines(sample("elements/iridium_2018.txt"), 12));
    write("messages.csv", sample("fuzz/elements/messages.csv"));
    write("messages.xml", sample("fuzz/elements/messages.xml"));
    write("damaged.txt", sample("elements/visual_2018.txt").mid(40, 3000).replace('7', "\0\xff"));
    write("empty.txt", {});
    // the address is that of a server that is not there
    write("vorlix.cfg",
          sample("fuzz/config/complete.cfg").replace("celestrak.org/", "127.0.0.1:1/").replace("2.5 ", "1.0 "));
    QDir().mkdir("folder");
    QImage sky(300, 200, QImage::Format_RGB32);
    sky.fill(Qt::darkBlue);
    sky.save("sky.png");
}

}  // namespace monkey
