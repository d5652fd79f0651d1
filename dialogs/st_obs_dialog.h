// The observer's place.
#pragma once

#include <QDialog>

class QLineEdit;
class QRadioButton;

class StObsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StObsDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Degrees, north and east positive, and metres. With `ddmm` the degrees are shown as DD.MMSS.
    virtual void setParams(double lat, double lng, double height, char* geoname, bool ddmm);

    /// Decimal degrees in either form of the dialog.
    virtual void getParams(double& lat, double& lng, double& height, bool& ddmm);

    virtual QString getGeoname();

    /// Turns latitude and longitude, as they stand, from DD.MMSS into decimal degrees, and back.
    virtual void setDec();
    virtual void setDdmm();

private:
    void showPlace(double lat, double lng);

    QLineEdit* latEdit = nullptr;
    QLineEdit* lngEdit = nullptr;
    QLineEdit* heightEdit = nullptr;
    QLineEdit* locEdit = nullptr;
    QRadioButton* decButton = nullptr;
    QRadioButton* ddmmButton = nullptr;
};
