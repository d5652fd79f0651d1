// A line under the canvas that tells how old the elements on show are.
#pragma once

#include "engine/element_age.h"

#include <QString>
#include <QTimer>
#include <QToolBar>

class QLabel;
class VorlixView;

class AgeStrip : public QToolBar
{
    Q_OBJECT

public:
    /// Hidden; it asks the view twice a second while it is shown.
    AgeStrip(const VorlixView* canvas, QWidget* parent);

    /// Asks the view now.
    void tell();

    /// "SEASAT 1: elements 3.2 days old, about +-1 s".
    static QString sentence(const QString& name, const ElementAge& age);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const VorlixView* view;
    QLabel* label;
    QTimer clock;
};
