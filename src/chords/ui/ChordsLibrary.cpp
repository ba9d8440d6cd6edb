#include "chords/ui/ChordsLibrary.h"

#include <algorithm>

#include "chords/ChordCatalogue.h"
#include "chords/ChordShape.h"
#include "chords/ui/ChordsLibraryDelegate.h"
#include "framework/Log.h"

namespace zt {

namespace {

// The pause between picking a chord and hearing it.
constexpr double kPickDelaySeconds = 0.25;
// How often a sounding output is asked whether it may let the device go.
constexpr int kReleasePollMs = 1000;

QStringList titles(const std::vector<std::string>& list) {
    QStringList out;
    for (const std::string& s : list)
        out << QString::fromStdString(s);
    return out;
}

// "/E" for a group with E in the bass; empty for the root's group.
QString slashBass(const VariationSet& set, int group, const std::string& root) {
    const std::string_view bass = bassName(set, group, root);
    if (bass.empty() || bass == root)
        return {};
    return "/" + QString::fromUtf8(bass.data(), static_cast<qsizetype>(bass.size()));
}

template <class Array>
std::vector<std::string> strings(const Array& array) {
    return std::vector<std::string>(array.begin(), array.end());
}

}  // namespace

ChordsLibrary::ChordsLibrary(ChordOutput& output, QObject* parent)
    : Screen(parent),
      output_(output),
      roots_(strings(chords::rootLabels())),
      types_(strings(chords::typeLabels())),
      set_(std::make_unique<VariationSet>()) {
    releaseTimer_.setInterval(kReleasePollMs);
    connect(&releaseTimer_, &QTimer::timeout, this, [this] {
        if (output_.releaseWhenSilent())
            releaseTimer_.stop();
    });
    lightTimer_.setInterval(kLightRefreshMs);
    connect(&lightTimer_, &QTimer::timeout, this, &ChordsLibrary::updateLights);
    connect(&finder_, &ChordsFinder::heldChanged, this, &ChordsLibrary::variationChanged);
    connect(&finder_, &ChordsFinder::activeChanged, this, &ChordsLibrary::hidePicker);
    connect(&finder_, &ChordsFinder::activeChanged, this, &ChordsLibrary::variationChanged);
    paint();
}

ChordsLibrary::~ChordsLibrary() = default;

QStringList ChordsLibrary::rootTitles() const {
    return titles(roots_);
}

QStringList ChordsLibrary::typeTitles() const {
    return titles(types_);
}

QString ChordsLibrary::bassText() const {
    if (set_->count == 0)
        return {};
    const int index = state_.currentVariationsIndex;
    int group = 0;
    while (group + 1 < set_->groupCount && set_->groupStart[group + 1] <= index)
        ++group;
    return slashBass(*set_, group, state_.choice.generatorRoot());
}

QString ChordsLibrary::variationText() const {
    if (set_->count == 0)
        return {};
    return QStringLiteral("%1 / %2").arg(state_.currentVariationsIndex + 1).arg(set_->count);
}

QString ChordsLibrary::emptyNote() const {
    if (set_->count > 0)
        return {};
    return QStringLiteral("No fingering of %1 in this tuning").arg(chordName());
}

bool ChordsLibrary::canSound() const {
    return delegate_ && delegate_->isBuffersLoaded();
}

void ChordsLibrary::selectRow(int row, int component) {
    if (component != 0 && component != 1)
        return;
    const int rootRow = component == 0 ? row : state_.choice.rootRow;
    const int typeRow = component == 1 ? row : state_.choice.typeRow;
    const auto choice = choiceAt(roots_, types_, rootRow, typeRow);
    if (!choice)
        return;
    state_.choice = *choice;
    state_.currentVariationsIndex = 0;
    log("chords: " + state_.choice.label());
    reload();
    playCurrentChord(kPickDelaySeconds);
}

void ChordsLibrary::showVariation(int index) {
    if (index < 0 || index >= set_->count)
        return;
    state_.currentVariationsIndex = index;
    paint();
    playCurrentChord();
}

void ChordsLibrary::togglePicker() {
    pickerVisible_ = !pickerVisible_;
    emit pickerVisibleChanged();
}

void ChordsLibrary::hidePicker() {
    if (!pickerVisible_)
        return;
    pickerVisible_ = false;
    emit pickerVisibleChanged();
}

void ChordsLibrary::openSettings() {
    hidePicker();
    if (delegate_)
        delegate_->showChordsLibrarySettings();
}

void ChordsLibrary::touchBegan() {
    hidePicker();
}

void ChordsLibrary::touchMoved(qreal x, int touchCount) {
    // The finder's neck takes taps: nothing strums.
    if (finder_.active())
        return;
    const TouchView before = touch_;
    const int string = touch_.touchesMoved(x, touchCount, notes_.canPlay);
    bool changed = false;
    for (int n = 1; n <= kStringCount; ++n)
        changed = changed || before.isLocked(n) != touch_.isLocked(n);
    if (changed)
        emit lockedChanged();
    if (string == 0 || !canSound())
        return;
    output_.playString(notes_, string);
    startReleaseTimer();
    followSound();
}

void ChordsLibrary::setStateForArrowButtons(qreal y, qreal contentHeight, qreal viewHeight) {
    const StripArrows arrows = StripArrows::forScroll(y, contentHeight, viewHeight);
    if (arrows.upper == arrows_.upper && arrows.lower == arrows_.lower)
        return;
    arrows_ = arrows;
    emit arrowsChanged();
}

qreal ChordsLibrary::stripPageTarget(int direction, qreal y, qreal contentHeight, qreal viewHeight,
                                     qreal itemHeight) const {
    return StripArrows::pageTarget(direction, y, contentHeight, viewHeight, itemHeight);
}

void ChordsLibrary::setShowNotes(bool notes) {
    if (notes == state_.notes)
        return;
    state_.notes = notes;
    emit flagChanged();
    paint();
}

void ChordsLibrary::playCurrentChord(double delaySeconds) {
    if (set_->count == 0)
        return;
    if (!canSound()) {
        log("chords: the sounds are not loaded yet");
        return;
    }
    output_.playChord(notes_, delaySeconds);
    startReleaseTimer();
    followSound();
}

void ChordsLibrary::startReleaseTimer() {
    if (!releaseTimer_.isActive())
        releaseTimer_.start();
}

void ChordsLibrary::viewWillAppear() {
    // A running metronome goes on: chord changes are practised against it.
    if (delegate_)
        delegate_->stopMusic();
    updateTuningName();
}

void ChordsLibrary::viewDidDisappear() {
    hidePicker();
    saveCurrentState();
    if (output_.releaseWhenSilent())
        releaseTimer_.stop();
    if (delegate_)
        delegate_->startMusic();
}

void ChordsLibrary::setChordsForPicker(const std::vector<std::string>& roots,
                                       const std::vector<std::string>& types) {
    if (roots.empty() || types.empty())
        return;
    roots_ = roots;
    types_ = types;
    emit pickerChanged();
}

void ChordsLibrary::setSavedData(const Dictionary& data) {
    state_ = restoredState(data, roots_, types_);
    restoreCapo(data);
    for (int n = 1; n <= kStringCount; ++n)
        touch_.setLocked(n, state_.lockedString[static_cast<std::size_t>(n - 1)]);
    emit flagChanged();
    emit lockedChanged();
    reload();
}

void ChordsLibrary::tuningChanged() {
    updateTuningName();
    state_.currentVariationsIndex = 0;
    reload();
}

void ChordsLibrary::saveCurrentState() {
    for (int n = 1; n <= kStringCount; ++n)
        state_.lockedString[static_cast<std::size_t>(n - 1)] = touch_.isLocked(n);
    if (delegate_)
        delegate_->saveChordsLibrarySettings(savedDictionary(state_));
}

void ChordsLibrary::reload() {
    set_->count = 0;
    set_->groupCount = 1;
    set_->groupStart = {};
    if (delegate_) {
        delegate_->getChordVariationsByName(state_.choice.generatorRoot(),
                                            state_.choice.chordPartTwo, *set_);
        finder_.setTuning(delegate_->openNotes());
    }
    drawDiagrams();
    emit chordChanged();
    paint();
}

void ChordsLibrary::drawDiagrams() {
    diagrams_.clear();
    const std::string root = state_.choice.generatorRoot();
    for (int g = 0; g < set_->groupCount; ++g) {
        const QString caption = slashBass(*set_, g, root);
        for (const ChordVariation& v : set_->group(g))
            diagrams_.append(smallDiagram(shapeOf(v), caption, touch_.leftHanded()));
    }
}

void ChordsLibrary::paint() {
    const int count = set_->count;
    state_.currentVariationsIndex =
        std::clamp(state_.currentVariationsIndex, 0, std::max(count - 1, 0));
    if (count == 0) {
        notes_ = StringNotes{};
        neck_ = NeckPicture::empty(touch_.leftHanded());
    } else {
        const ChordVariation& v =
            set_->records[static_cast<std::size_t>(state_.currentVariationsIndex)];
        notes_ = zt::stringNotes(v);
        neck_ = NeckPicture::of(shapeOf(v), state_.notes, touch_.leftHanded());
    }
    state_.canPlayString = notes_.canPlay;
    emit variationChanged();
}

void ChordsLibrary::updateTuningName() {
    const QString name = delegate_ ? QString::fromStdString(delegate_->getTuningName()) : QString();
    if (name == tuningName_)
        return;
    tuningName_ = name;
    emit tuningNameChanged();
}

}  // namespace zt
