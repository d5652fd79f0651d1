// The observer's place.
#pragma once

#include <QDialog>

class Field;
class QRadioButton;

class StObsDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StObsDialog(QWidget* parent = nullptr);

    /// A place on the Earth.
    struct Values
    {
        double lat = 0, lng = 0;  // decimal degrees, north and east positive
        double height = 0;        // metres
        bool packed = false;      // the degrees are shown as DD.MMSS
        QString name;
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` one by one.
    virtual void setParams(double lat, double lng, double height, char* geoname, bool ddmm);

    /// `values` one by one, without the name.
    virtual void getParams(double& lat, double& lng, double& height, bool& ddmm);

    /// The name of the place as it stands in its field.
    virtual QString getGeoname();

    /// Turns latitude and longitude from DD.MMSS into decimal degrees, and back.
    virtual void setDec();
    /// A place typed in decimal degrees is shown as DD.MMSS.
    virtual void setDdmm();

private:
    /// Decimal degrees of a field that shows them packed or not.
    double degreesIn(const Field* field, bool packed) const;
    /// Decimal degrees, shown packed or not.
    void showPlace(double lat, double lng, bool packed);

    Field* latEdit = nullptr;
    Field* lngEdit = nullptr;
    Field* heightEdit = nullptr;
    Field* locEdit = nullptr;
    QRadioButton* decButton = nullptr;
    QRadioButton* ddmmButton = nullptr;
};
