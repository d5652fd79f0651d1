// What the display draws: world map or sky map, projection, grid, background and fonts.
#pragma once

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

/// Whether the physical map can be chosen in the dialog on show.
extern bool stmpphwm;

class StMapDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StMapDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    virtual void getParamF(int& mfsz, bool& bf, int& mapprj, double& centmer, double& frequ);

    /// Comes after setParams. Without `phwm` there is no physical map to choose. `centmer` is degrees, `frequ` Hz.
    virtual void setParamF(int mfsz, bool& bf, int mapprj, double centmer, double frequ, bool phwm);

    /// `skaz` is degrees.
    virtual void setParams(int mgrid, int mgrey, int skyprj, int mpnight, int skymap, int ra4d, double skaz,
                           bool satsky);

    virtual void getParams(int& mgrid, int& mgrey, int& skyprj, int& mpnight, int& skymap, int& ra4d, double& skaz,
                           bool& satsky);

    /// Shows the settings of the sky map or those of the world map; a fixed direction writes its azimuth.
    virtual void showSlot();

private:
    void addBackground(QVBoxLayout* column);
    void addWorldMap(QVBoxLayout* column);
    void addSky(QVBoxLayout* column);
    void addBoxes(QVBoxLayout* column);
    void addNumbers(QVBoxLayout* column);
    double azimuthOfButtons() const;

    QGroupBox* backGroup = nullptr;
    QGroupBox* gridGroup = nullptr;
    QGroupBox* mapGroup = nullptr;
    QGroupBox* skyGroup = nullptr;
    QRadioButton* whiteButton = nullptr;
    QRadioButton* greyButton = nullptr;
    QRadioButton* blackButton = nullptr;
    QRadioButton* gnoButton = nullptr;
    QRadioButton* g30Button = nullptr;
    QRadioButton* g10Button = nullptr;
    QRadioButton* pstdButton = nullptr;
    QRadioButton* pnorthButton = nullptr;
    QRadioButton* psouthButton = nullptr;
    QRadioButton* ppwmButton = nullptr;
    QRadioButton* zenithButton = nullptr;
    QRadioButton* northButton = nullptr;
    QRadioButton* eastButton = nullptr;
    QRadioButton* southButton = nullptr;
    QRadioButton* westButton = nullptr;
    QRadioButton* azimButton = nullptr;
    QCheckBox* skyBox = nullptr;
    QCheckBox* satskyBox = nullptr;
    QCheckBox* fszBox = nullptr;
    QCheckBox* boldBox = nullptr;
    QCheckBox* nightBox = nullptr;
    QCheckBox* ra4dBox = nullptr;
    QLineEdit* meridianEdit = nullptr;
    QLineEdit* azimEdit = nullptr;
    QLineEdit* frequEdit = nullptr;
};
