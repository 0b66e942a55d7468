// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CWholeModuleWarningWidget.h"

#include "platform/widgets/CStatusWords.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSvgWidget>
#include <QVBoxLayout>

namespace {

WarningState sharedState = WarningState::Nothing;

const char OfflinePicture[] = ":/Image/Devices/offline-device-tip.svg";
const char SelectPicture[] = ":/Image/Devices/no-seleccted-device-tip.svg";

struct SWarningText
{
    const char *title;
    const char *hint;
    const char *picture;
    bool hintToDetect; // shown only while such hints are enabled
};

const char SelectHint[] = QT_TRANSLATE_NOOP("CWholeModuleWarningWidget",
                                            "Please click on the processor in the device tree to switch");

SWarningText textOf(WarningState state)
{
    switch (state) {
    case WarningState::NoProcessorOnline:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget", "No online processor found"),
                QT_TRANSLATE_NOOP("CWholeModuleWarningWidget",
                                  "Please click on the \"Detect devices\" button in the upper left corner of "
                                  "the software to search for devices and update their status."),
                OfflinePicture, true};
    case WarningState::NoneSelected:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget", "No processor selected"), SelectHint,
                SelectPicture, false};
    case WarningState::SeveralSelected:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget", "Please select a single processor"),
                SelectHint, SelectPicture, false};
    case WarningState::Offline:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget", "The current processor is offline"),
                QT_TRANSLATE_NOOP("CWholeModuleWarningWidget",
                                  "Please click on the \"Detect devices\" button in the upper left corner of "
                                  "the software to search for the current processor and update its status."),
                OfflinePicture, true};
    case WarningState::FiberTransceiver:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget",
                                  "Fiber Optic Transceiver Mode is on, and no other operations are "
                                  "avaliable."),
                "", SelectPicture, false};
    case WarningState::FiberTransceiverInGroup:
        return {QT_TRANSLATE_NOOP("CWholeModuleWarningWidget",
                                  "There is a processor in the fiber optic transceiver mode in the group \n "
                                  "group operations cannot be performed."),
                SelectHint, SelectPicture, false};
    case WarningState::Refresh:
    case WarningState::Nothing:
        break;
    }
    return {"", "", "", false};
}

QLabel *centredLabel(const QString &styleSheet)
{
    auto *label = new QLabel;
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setStyleSheet(styleSheet);
    return label;
}

} // namespace

CWholeModuleWarningWidget::CWholeModuleWarningWidget(QWidget *parent)
    : QWidget(parent)
    , m_picture(new QSvgWidget)
    , m_title(centredLabel(QStringLiteral(
          ".QLabel{background:transparent;color:rgba(136, 136, 146, 1);font-size: 16px;font-weight:600;}")))
    , m_hint(centredLabel(
          QStringLiteral(".QLabel{background:transparent;color:rgba(136, 136, 146, 1);font-size: 12px;}")))
    , m_unsaved(new QLabel)
    , m_videoMode(new QPushButton(tr("Video processor mode")))
    , m_bypassMode(new QPushButton(tr("Bypass mode")))
{
    buildUi();
    connectSignals();
    applyState();
}

void CWholeModuleWarningWidget::setState(WarningState state)
{
    if (state == sharedState)
        return;
    if (state != WarningState::Refresh)
        sharedState = state;
    applyState();
}

void CWholeModuleWarningWidget::setUnsaved(const QString &processor)
{
    m_unsaved->setText(processor.isEmpty()
                           ? QString()
                           : tr("The edits of %1 that were not saved are kept here.").arg(processor));
    applyState();
}

void CWholeModuleWarningWidget::setDetectHintEnabled(bool enabled)
{
    m_detectHint = enabled;
    applyState();
}

void CWholeModuleWarningWidget::buildUi()
{
    m_videoMode->setFixedSize(208, 24);
    m_bypassMode->setFixedSize(208, 24);
    m_picture->setFixedSize(120, 120);
    m_unsaved->setTextFormat(Qt::PlainText);
    m_unsaved->setAlignment(Qt::AlignCenter);
    m_unsaved->setWordWrap(true);

    auto *modes = new QHBoxLayout;
    modes->setSpacing(12);
    modes->addStretch();
    modes->addWidget(m_videoMode);
    modes->addWidget(m_bypassMode);
    modes->addStretch();

    auto *column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addStretch();
    column->addWidget(m_picture, 0, Qt::AlignHCenter);
    column->addWidget(m_title);
    column->addWidget(m_hint);
    column->addWidget(m_unsaved);
    column->addLayout(modes);
    column->addStretch();
}

void CWholeModuleWarningWidget::connectSignals()
{
    connect(m_videoMode, &QPushButton::clicked, this,
            &CWholeModuleWarningWidget::NotifyVideoProcessorClicked);
    connect(m_bypassMode, &QPushButton::clicked, this, [this] {
        Q_EMIT NotifyByPassClicked();
        Q_EMIT NotifySetPrcBypassModeEnable();
    });
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Undo);
    const QKeySequence redo(Qt::CTRL | Qt::Key_Y);
    keys << QKeySequence::keyBindings(QKeySequence::Redo);
    keys.removeAll(redo); // twice it would be ambiguous
    keys << redo;
    auto *steps = new QAction(this); // also while the tree has the focus
    steps->setShortcuts(keys);
    addAction(steps);
    auto *words = new CStatusWords(*this);
    connect(steps, &QAction::triggered, words,
            [words] { words->tell(tr("Undo and redo need a layout, and none is shown.")); });
}

void CWholeModuleWarningWidget::applyState()
{
    m_picture->hide();
    m_title->hide();
    m_hint->hide();
    fill(sharedState);
    const bool empty = sharedState == WarningState::Nothing;
    const bool fiber = sharedState == WarningState::FiberTransceiver;
    m_picture->setVisible(!empty);
    m_title->setVisible(!empty);
    m_hint->setVisible(!empty && !fiber);
    m_unsaved->setVisible(sharedState == WarningState::Offline && !m_unsaved->text().isEmpty());
    m_videoMode->setVisible(fiber);
    m_bypassMode->setVisible(fiber);
}

void CWholeModuleWarningWidget::fill(WarningState state)
{
    const SWarningText text = textOf(state);
    m_title->setText(*text.title ? tr(text.title) : QString());
    m_hint->setText(*text.hint && (m_detectHint || !text.hintToDetect) ? tr(text.hint) : QString());
    const QString picture = QString::fromLatin1(text.picture);
    if (!picture.isEmpty() && picture != m_picturePath)
        m_picture->load(picture);
    m_picturePath = picture;
}
