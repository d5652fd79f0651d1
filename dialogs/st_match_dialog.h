// A sighting, and how near a satellite of the element file must have come to it.
#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;

class StMatchDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StMatchDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// The position is azimuth and elevation in degrees or, with `rdf`, packed HH.MMSS and DD.MMSS. `tm` is minutes, the
    /// other two are degrees.
    virtual void setParams(double az, double el, double mxa, double dra, double tm, int rdf, int drf, bool vis);

    virtual void getParams(double& az, double& el, double& mxa, double& dra, double& tm, int& rdf, int& drf,
                           bool& vis);

    /// The labels of the position follow its form.
    virtual void raSlot();

    /// The direction can be typed only while it counts.
    virtual void dirSlot();

private:
    QLineEdit* azEdit = nullptr;
    QLineEdit* elEdit = nullptr;
    QLineEdit* mxaEdit = nullptr;
    QLineEdit* draEdit = nullptr;
    QLineEdit* tmEdit = nullptr;
    QCheckBox* raBox = nullptr;
    QCheckBox* drfBox = nullptr;
    QCheckBox* visBox = nullptr;
    QLabel* raLabel = nullptr;
    QLabel* elLabel = nullptr;
};
