// The system parameters of the numeric propagation, of elevations and of magnitudes.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QVBoxLayout;

class StSysConfDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StSysConfDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    virtual void setParams(double RKFtol, double dF107, double dFB107, double dKp, double dCd, double dCr, double dAm,
                           double lift, bool sunf, bool moonf, bool refrc, int mxit, bool atmx);

    virtual void getParams(double& RKFtol, double& dF107, double& dFB107, double& dKp, double& dCd, double& dCr,
                           double& dAm, double& lift, bool& sunf, bool& moonf, bool& refrc, int& mxit, bool& atmx);

private:
    void addIntegration(QVBoxLayout* column);
    void addDefaults(QVBoxLayout* column);
    void addCorrections(QVBoxLayout* column);

    QLineEdit* tolEdit = nullptr;
    QLineEdit* mxiEdit = nullptr;
    QLineEdit* liftEdit = nullptr;
    QLineEdit* fb107Edit = nullptr;
    QLineEdit* f107Edit = nullptr;
    QLineEdit* kpEdit = nullptr;
    QLineEdit* dragEdit = nullptr;
    QLineEdit* crEdit = nullptr;
    QLineEdit* amEdit = nullptr;
    QCheckBox* sunBox = nullptr;
    QCheckBox* moonBox = nullptr;
    QCheckBox* refractBox = nullptr;
    QCheckBox* atxBox = nullptr;
};
