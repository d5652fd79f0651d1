// The start date, the time zone and the duration of predictions.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;

class StDateDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StDateDialog(QWidget* parent = nullptr);

    /// A date in civil time of a time zone, and how predictions go on from it.
    struct Values
    {
        int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
        double tzone = 0;         // hours, east positive
        bool systemZone = false;  // the time zone of this computer takes the place of `tzone`
        double dur = 0;           // days
        double rtoff = 0;         // offset of real-time plots from the clock, hours

        bool operator==(const Values&) const = default;
    };

    /// `event`: the date is that of a single event, so duration and offset are locked.
    void setValues(const Values& values, bool event);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

    /// What the date is for, in the title; for example "Maneuver".
    void setPurpose(const QString& purpose);

public Q_SLOTS:
    /// `setValues` one by one. A negative `dur` is shown without its sign and stands for an event.
    virtual void setParams(int year, int month, int day, int hour, int minute, int second, double tzone, int tzauto,
                           double dur, double rtoff);

    /// The time zone can be typed only while the system's is not used.
    virtual void systemSlot();

    /// `values` one by one; `dur` is never negative unless typed so.
    virtual void getParams(int& year, int& month, int& day, int& hour, int& minute, int& second, double& tzone,
                           int& tzauto, double& dur, double& rtoff);

private:
    /// Has a year far away and a day that does not exist marked.
    void doubtImpossibleDates();

    Field* yearEdit = nullptr;
    Field* monthEdit = nullptr;
    Field* dayEdit = nullptr;
    Field* hourEdit = nullptr;
    Field* minEdit = nullptr;
    Field* secEdit = nullptr;
    Field* tzoneEdit = nullptr;
    Field* durEdit = nullptr;
    Field* rtEdit = nullptr;
    QCheckBox* systemBox = nullptr;
};
