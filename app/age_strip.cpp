#include "app/age_strip.h"

#include <QLabel>
#include <algorithm>

#include "view/vorlix_view.h"

namespace {

constexpr int intervalMs = 500;
constexpr double leastToldS = 0.1, longestToldS = 86400.0;

/// A tenth below one second, whole seconds above.
QString secondsText(double seconds)
{
    if (!(seconds < longestToldS))
        return AgeStrip::tr("more than a day");
    return AgeStrip::tr("about +-%1 s").arg(std::max(seconds, leastToldS), 0, 'f', seconds < 0.95 ? 1 : 0);
}

/// Black on yellow, white on red.
QString styleOf(Freshness freshness)
{
    switch (freshness) {
    case Freshness::doubtful:
        return QStringLiteral("background: #ffe680; color: black");
    case Freshness::stale:
        return QStringLiteral("background: #a4001d; color: white");
    default:
        return {};
    }
}

}  // namespace

AgeStrip::AgeStrip(const VorlixView* canvas, QWidget* parent) : QToolBar(tr("age of elements"), parent), view(canvas)
{
    setObjectName(QStringLiteral("ageStrip"));
    setMovable(false);
    toggleViewAction()->setVisible(false);
    label = new QLabel;
    label->setObjectName(QStringLiteral("ageLabel"));
    label->setTextFormat(Qt::PlainText);
    label->setMargin(2);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    label->setWhatsThis(
        tr("The age of the elements at the time on show, and how far ahead or behind the satellite is "
           "expected to be for that. Yellow from 5 seconds or 7 days on, red from 30 seconds or 30 "
           "days on. Of a list the worst line counts."));
    addWidget(label);
    clock.setInterval(intervalMs);
    connect(&clock, &QTimer::timeout, this, &AgeStrip::tell);
    hide();
}

void AgeStrip::showEvent(QShowEvent* event)
{
    QToolBar::showEvent(event);
    clock.start();
}

void AgeStrip::hideEvent(QHideEvent* event)
{
    QToolBar::hideEvent(event);
    clock.stop();
}

QString AgeStrip::sentence(const QString& name, const ElementAge& age)
{
    return tr("%1: elements %2 days old, %3").arg(name, QString::number(age.days, 'f', 1), secondsText(age.seconds));
}

void AgeStrip::tell()
{
    const auto shown = view->ageOnShow();
    const QString text = shown ? sentence(shown->name, shown->age) : QString();
    if (text == label->text())
        return;
    label->setText(text);
    label->setStyleSheet(shown ? styleOf(freshnessOf(shown->age)) : QString());
}
