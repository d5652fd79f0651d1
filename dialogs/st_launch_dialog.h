// Launch site, launch direction and the time to orbit.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

/// The site chosen in the dialog on show, 0 for one typed by the user.
extern int csx;

class StLaunchDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StLaunchDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// `lsx` is the index in the list of sites, 0 for one typed by the user; degrees and minutes.
    virtual void setParams(int lsx, double lat, double lng, int lsouth, double tmeco);

    virtual void getParams(int& lsx, double& lat, double& lng, int& lsouth, double& tmeco);

    /// A site of the list brings its coordinates and locks them.
    virtual void siteSlot(int index);

private:
    void addDirection(QVBoxLayout* column);

    QComboBox* siteBox = nullptr;
    QLineEdit* latEdit = nullptr;
    QLineEdit* lngEdit = nullptr;
    QLineEdit* mecoEdit = nullptr;
    QRadioButton* northButton = nullptr;
    QRadioButton* southButton = nullptr;
};
