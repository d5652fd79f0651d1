// What the display draws: world map or sky map, projection, grid, background and fonts.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;
class QGroupBox;
class QRadioButton;
class QVBoxLayout;

/// Whether the physical map can be chosen in the dialog on show.
extern bool stmpphwm;

class StMapDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StMapDialog(QWidget* parent = nullptr);

    /// What plots draw, in the codes of the record.
    struct Values
    {
        int mgrid = 0;         // 0 none, 1 every 30 degrees, 2 every 10
        int mgrey = 0;         // background: 0 white, 1 grey, 2 black
        int skyprj = 0;        // sky: 0 zenith, 1 north, 2 east, 3 south, 4 west, 5 azimuth `skaz`
        int mapprj = 0;        // world: 0 simple, 1 northern, 2 southern hemisphere, 3 physical
        bool mpnight = false;  // the dark side is shaded
        bool skymap = false;   // the sky instead of the world
        bool ra4d = false;     // four digits of the sky coordinates
        bool satsky = false;   // the sky of the prime satellite
        bool largeFont = false;
        bool boldFont = false;
        double skaz = 0;     // degrees
        double centmer = 0;  // central meridian, degrees
        double frequ = 0;    // Hz, 0 for the range rate
    };

    /// Without its picture (`physicalMap`) the physical map cannot be chosen. A code out of range counts as 0.
    void setValues(const Values& values, bool physicalMap);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// The fonts, the world map and the frequency of `values`; `mfsz` is 12 or 10 points.
    virtual void getParamF(int& mfsz, bool& bf, int& mapprj, double& centmer, double& frequ);

    /// These five of `setValues`. Comes after setParams, which knows the others.
    virtual void setParamF(int mfsz, bool& bf, int mapprj, double centmer, double frequ, bool phwm);

    /// The other eight of `setValues` and `values`.
    virtual void setParams(int mgrid, int mgrey, int skyprj, int mpnight, int skymap, int ra4d, double skaz,
                           bool satsky);

    /// `values` one by one.
    virtual void getParams(int& mgrid, int& mgrey, int& skyprj, int& mpnight, int& skymap, int& ra4d, double& skaz,
                           bool& satsky);

    /// Shows the settings of the sky map or those of the world map; a fixed direction writes its azimuth.
    virtual void showSlot();

private:
    /// What setParams hands over.
    void showDisplay(const Values& values);
    /// What setParamF hands over.
    void showWorld(const Values& values, bool physicalMap);
    /// White, grey and black.
    void addBackground(QVBoxLayout* column);
    /// Projections and grids.
    void addWorldMap(QVBoxLayout* column);
    /// Directions of the sky map.
    void addSky(QVBoxLayout* column);
    /// Fonts, night and digits.
    void addBoxes(QVBoxLayout* column);
    /// Meridian, azimuth and frequency.
    void addNumbers(QVBoxLayout* column);
    /// The azimuth of the checked direction, degrees.
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
    Field* meridianEdit = nullptr;
    Field* azimEdit = nullptr;
    Field* frequEdit = nullptr;
};
