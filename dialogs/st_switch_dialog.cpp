#include "dialogs/st_switch_dialog.h"

#include <algorithm>
#include <tuple>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/form.h"
#include "elements/selection.h"

StSwitchDialog::StSwitchDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Select Prime Satellite"));
    auto* column = new QVBoxLayout;
    auto* inside = new QVBoxLayout;
    for (std::size_t i = 0; i < satButtons.size(); ++i)
        satButtons[i] = form::addRadio(inside, qPrintable(QString("satButton%1").arg(i + 1)), QString(), nullptr,
                                       {tr("Makes this satellite the prime satellite. The legend and the predictions "
                                           "are about the prime satellite.")});
    form::addGroup(column, "buttonGroup1", tr("selected satellites:"), inside,
                   {tr("The selected satellites. One of them is the prime satellite.")});
    relativeBox = form::addBox(column, "relativeBox", tr("&Relative Satellite Mode"), "Alt+R",
                               {tr("If marked, the other satellites are shown and predicted as seen from the prime "
                                   "satellite. At least two satellites have to be selected."),
                                tr("Show relative satellite positions")});
    column->addStretch();
    auto* buttons = new QHBoxLayout;
    form::addClose(this, buttons, {tr("Takes the choice over and closes the dialog.")});
    form::finish(this, column, buttons);
}

void StSwitchDialog::setValues(const Values& values, int count)
{
    relativeBox->setChecked(values.relative);
    for (int i = 0; i < static_cast<int>(satButtons.size()); ++i) {
        QRadioButton* button = satButtons[static_cast<std::size_t>(i)];
        button->setChecked(i == values.prime);
        form::setShown(button, i < count);
        if (i < count) {
            const QString digit = i < 9 ? QString("&%1 ").arg(i + 1) : QString("1&0 ");
            button->setText(digit + vsSatName(i + 1).replace('&', "&&"));
        }
    }
}

StSwitchDialog::Values StSwitchDialog::values() const
{
    const auto chosen = std::ranges::find_if(satButtons, &QRadioButton::isChecked);
    const int prime = chosen == satButtons.end() ? 0 : static_cast<int>(chosen - satButtons.begin());
    return {prime, relativeBox->isChecked()};
}

void StSwitchDialog::setParams(int prs, int rlm, int satn)
{
    setValues({prs, rlm == 1}, satn);
}

void StSwitchDialog::getParams(int& prs, int& rlm)
{
    std::tie(prs, rlm) = std::tuple(values().prime, values().relative ? 1 : 0);
}
