// A field of the sky: its centre, its size and how long it is exposed.
#pragma once

#include "observing/field.h"

#include <QDialog>

class Field;
class QCheckBox;

class StFieldDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StFieldDialog(QWidget* parent = nullptr);

    struct Values
    {
        SkyField field;
        double exposure = 60;  // seconds
        bool sunlitOnly = true;
    };
    void setValues(const Values& values);
    /// A frame has no radius, and a circle no width.
    Values values() const;

private:
    void nameAngles();
    void showShape();

    Field* azEdit = nullptr;
    Field* elEdit = nullptr;
    QCheckBox* raBox = nullptr;
    QCheckBox* frameBox = nullptr;
    Field* radiusEdit = nullptr;
    Field* widthEdit = nullptr;
    Field* heightEdit = nullptr;
    Field* angleEdit = nullptr;
    Field* exposureEdit = nullptr;
    QCheckBox* sunlitBox = nullptr;
};
