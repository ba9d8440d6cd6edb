// The metronome screen's choices: the tempo wheel with plus and minus, the
// choice panels, and the keys that drive them.
#include <QtCore/qnamespace.h>

#include "metronome/ChoiceSteps.h"
#include "metronome/TempoRules.h"
#include "metronome/ui/Metronome.h"

namespace zt {

namespace {

Choice choiceOf(Metronome::Panel panel) {
    switch (panel) {
        case Metronome::DenominatorPanel:
            return Choice::Denominator;
        case Metronome::PatternPanel:
            return Choice::Pattern;
        default:
            return Choice::Numerator;
    }
}

}  // namespace

void Metronome::plus() {
    if (core_.plus())
        rowUpdated();
}

void Metronome::minus() {
    core_.minus();
    rowUpdated();
}

void Metronome::selectRow(int row) {
    // A row the wheel does not have puts the wheel back where it was.
    core_.selectRow(row);
    rowUpdated();
}

void Metronome::showWheelRow(int row) {
    if (!isWheelRow(row) || row == shownRow_)
        return;
    shownRow_ = row;
    emit tempoChanged();
}

void Metronome::chooseNumerator(int numerator) {
    if (!core_.setTimeSig1Value(numerator))
        return;
    settingsUpdated();
    setPanel(NoPanel);
}

void Metronome::chooseDenominator(int denominator) {
    if (!core_.setTimeSig2Value(denominator))
        return;
    settingsUpdated();
    setPanel(NoPanel);
}

void Metronome::choosePattern(int pattern) {
    if (!core_.setNotesPerBeat(pattern))
        return;
    settingsUpdated();
    setPanel(NoPanel);
}

void Metronome::openPanel(Panel kind) {
    if (kind < NoPanel || kind > PatternPanel)
        return;
    setPanel(kind == panel_ ? NoPanel : kind);
}

void Metronome::closePanel() {
    setPanel(NoPanel);
}

void Metronome::stepChoice(Panel kind, int delta) {
    if (kind <= NoPanel || kind > PatternPanel)
        return;
    const int value = steppedChoice(core_.setup(), choiceOf(kind), delta);
    bool changed = false;
    if (kind == NumeratorPanel)
        changed = value != numerator() && core_.setTimeSig1Value(value);
    else if (kind == DenominatorPanel)
        changed = value != denominator() && core_.setTimeSig2Value(value);
    else
        changed = value != pattern() && core_.setNotesPerBeat(value);
    if (changed)
        settingsUpdated();
}

bool Metronome::panelKeyPressed(int key) {
    const int page = choicePage(choiceOf(panel_));
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            stepChoice(panel_, -1);
            return true;
        case Qt::Key_Right:
        case Qt::Key_Down:
            stepChoice(panel_, 1);
            return true;
        case Qt::Key_PageUp:
            stepChoice(panel_, -page);
            return true;
        case Qt::Key_PageDown:
            stepChoice(panel_, page);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            closePanel();
            return true;
        default:
            return false;
    }
}

bool Metronome::keyPressed(int key) {
    if (panel_ != NoPanel && panelKeyPressed(key))
        return true;
    switch (key) {
        case Qt::Key_Space:
            startStop();
            return true;
        case Qt::Key_T:
            tap();
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            plus();
            return true;
        case Qt::Key_Minus:
        case Qt::Key_Underscore:
            minus();
            return true;
        case Qt::Key_Escape:
            closePanel();
            return true;
        default:
            return false;
    }
}

}  // namespace zt
