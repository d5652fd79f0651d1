// Launch site, launch direction and the time to orbit.
#pragma once

#include <QDialog>

class Field;
class QComboBox;
class QRadioButton;
class QVBoxLayout;

/// The site chosen in the dialog on show, 0 for one typed by the user.
extern int csx;

class StLaunchDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StLaunchDialog(QWidget* parent = nullptr);

    /// Where and how a satellite is launched.
    struct Values
    {
        int site = 0;               // index in the list of sites, 0 for one typed by the user
        double lat = 0, lng = 0;    // degrees, north and east positive
        bool southward = false;     // of the two directions that lead into the orbit
        double minutesToOrbit = 0;  // from liftoff
    };

    /// An index outside the list counts as 0; a site of the list brings its own coordinates.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` one by one.
    virtual void setParams(int lsx, double lat, double lng, int lsouth, double tmeco);

    /// `values` one by one.
    virtual void getParams(int& lsx, double& lat, double& lng, int& lsouth, double& tmeco);

    /// A site of the list brings its coordinates and locks them.
    virtual void siteSlot(int index);

private:
    /// The two directions that lead into the orbit.
    void addDirection(QVBoxLayout* column);

    QComboBox* siteBox = nullptr;
    Field* latEdit = nullptr;
    Field* lngEdit = nullptr;
    Field* mecoEdit = nullptr;
    QRadioButton* northButton = nullptr;
    QRadioButton* southButton = nullptr;
};
