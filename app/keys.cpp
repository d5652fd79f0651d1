// The hot keys: a second way into the main commands, with and without "Ctrl".

#include "app/vorlix_app.h"

#include <array>

#include <QAction>
#include <QKeyEvent>

#include "view/vorlix_view.h"

namespace {

struct LetterKey
{
    int key;
    void (VorlixApp::*slot)();
};

constexpr std::array letterKeys{
    LetterKey{Qt::Key_A, &VorlixApp::slotCalcAOS},         LetterKey{Qt::Key_B, &VorlixApp::slotCalcBrightest},
    LetterKey{Qt::Key_C, &VorlixApp::slotInputLocation},   LetterKey{Qt::Key_D, &VorlixApp::slotInputDate},
    LetterKey{Qt::Key_E, &VorlixApp::slotManvEdit},        LetterKey{Qt::Key_F, &VorlixApp::slotFileOpen},
    LetterKey{Qt::Key_G, &VorlixApp::slotPlotDelta},       LetterKey{Qt::Key_H, &VorlixApp::slotQuickHelp},
    LetterKey{Qt::Key_J, &VorlixApp::slotFileObservation}, LetterKey{Qt::Key_K, &VorlixApp::slotCalcField},
    LetterKey{Qt::Key_L, &VorlixApp::slotManvLaunch},      LetterKey{Qt::Key_M, &VorlixApp::slotViewMagnitude},
    LetterKey{Qt::Key_O, &VorlixApp::slotCalcOrbitTrack},  LetterKey{Qt::Key_P, &VorlixApp::slotInputNextSat},
    LetterKey{Qt::Key_R, &VorlixApp::slotPlotRT},          LetterKey{Qt::Key_T, &VorlixApp::slotViewStep},
    LetterKey{Qt::Key_U, &VorlixApp::slotPlotCurrent},     LetterKey{Qt::Key_W, &VorlixApp::slotViewSwitch},
    LetterKey{Qt::Key_X, &VorlixApp::slotViewText},        LetterKey{Qt::Key_Y, &VorlixApp::slotViewMap},
    LetterKey{Qt::Key_Z, &VorlixApp::slotInputRemoveSat},
};

/// The code of a small letter counts as that of its capital.
int capitalKey(int key)
{
    return key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key;
}

}  // namespace

void VorlixApp::keyPressEvent(QKeyEvent* event)
{
    setFocus(Qt::OtherFocusReason);
    const int key = capitalKey(event->key());
    if (!letterKey(key) && !otherKey(key))
        QMainWindow::keyPressEvent(event);
}

bool VorlixApp::letterKey(int key)
{
    for (const LetterKey& row : letterKeys) {
        if (row.key == key) {
            (this->*row.slot)();
            return true;
        }
    }
    switch (key) {
    case Qt::Key_N:
        viewNames->toggle();
        return true;
    case Qt::Key_S:
        view->vSelectSat();
        return true;
    case Qt::Key_V:
        view->vVisibility();
        return true;
    default:
        return false;
    }
}

bool VorlixApp::otherKey(int key)
{
    switch (key) {
    case Qt::Key_Space:
        view->vLocalInf();
        return true;
    case Qt::Key_Delete:
        view->vRefreshP();
        return true;
    case Qt::Key_Home:
        scrollHome();
        view->goHome();
        return true;
    case Qt::Key_PageUp:
        slotStopTime();
        slotPlotLast();
        return true;
    case Qt::Key_PageDown:
        slotStopTime();
        slotPlotNext();
        return true;
    default:
        return rowKey(key) || arrowKey(key) || digitKey(key);
    }
}

/// On a pass table: a row is chosen and its details are opened.
bool VorlixApp::rowKey(int key)
{
    if (!view->hasRows())
        return false;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        view->openMarkedRow();
        return true;
    }
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    slotStopTime();
    const QPoint row = view->markNextRow(key == Qt::Key_Down ? 1 : -1).center();
    scrollArea->ensureVisible(0, row.y());
    return true;
}

bool VorlixApp::arrowKey(int key)
{
    struct Arrow
    {
        int key, dx, dy;
    };
    constexpr std::array arrows{Arrow{Qt::Key_Left, 10, 0}, Arrow{Qt::Key_Right, -10, 0}, Arrow{Qt::Key_Up, 0, -10},
                                Arrow{Qt::Key_Down, 0, 10}};
    for (const Arrow& arrow : arrows) {
        if (arrow.key == key) {
            slotStopTime();
            view->scrollDsp(arrow.dx, arrow.dy);
            return true;
        }
    }
    return false;
}

bool VorlixApp::digitKey(int key)
{
    if (key < Qt::Key_0 || key > Qt::Key_9)
        return false;
    view->keyPress(key == Qt::Key_0 ? 10 : key - Qt::Key_0);
    return true;
}
