// The base of the tests of the view: each has a new view in a folder of its own and a clock that stands.
#pragma once

#include <memory>

#include "view/vorlix_view.h"
#include "view/window_helper.h"

class ViewTest : public QObject
{
protected:
    void open()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
    }

    /// The same for drawings: a black background, the observer in Vienna.
    void openForDrawing(double mjd)
    {
        open();
        windows::observeAllFromVienna();
        indata->mgrey = 2;
        indata->mjd = mjd;
    }

    void close()
    {
        view.reset();
        place.reset();
    }

    QImage mapImage() const { return view->mapPixmap().toImage(); }
    QImage drawnMap()
    {
        view->vRefresh();
        return mapImage();
    }
    QImage shownImage() const { return view->displayPixmap().toImage(); }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};
