// The start date, the time zone and the duration of predictions.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

class StDateDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StDateDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// The date is civil time in the zone of the dialog, `tzone` and `rtoff` are hours, `dur` is days. A negative `dur`
    /// is shown without its sign and locks duration and offset: the date is then that of a single event.
    virtual void setParams(int year, int month, int day, int hour, int minute, int second, double tzone, int tzauto,
                           double dur, double rtoff);

    /// The time zone can be typed only while the system's is not used.
    virtual void systemSlot();

    virtual void getParams(int& year, int& month, int& day, int& hour, int& minute, int& second, double& tzone,
                           int& tzauto, double& dur, double& rtoff);

private:
    QLineEdit* yearEdit = nullptr;
    QLineEdit* monthEdit = nullptr;
    QLineEdit* dayEdit = nullptr;
    QLineEdit* hourEdit = nullptr;
    QLineEdit* minEdit = nullptr;
    QLineEdit* secEdit = nullptr;
    QLineEdit* tzoneEdit = nullptr;
    QLineEdit* durEdit = nullptr;
    QLineEdit* rtEdit = nullptr;
    QCheckBox* systemBox = nullptr;
};
