// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintInput.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QListWidget;

/// Chooses the processors that are printed, and whose settings are shown. GUI thread.
class CPrintChoice final : public QWidget
{
    Q_OBJECT

public:
    /// @p input must outlive it. @p chosen are the processors that are printed at first.
    CPrintChoice(const SPrintInput &input, const QList<QUuid> &chosen);

    SPrintInput chosenInput() const; ///< without the processors that are not chosen
    QUuid scope() const;             ///< the processor whose settings are shown; null: the whole job
    /// Whether the processor of the scope has settings of its own.
    bool hasOwn() const;
    void setOwn(bool own);

Q_SIGNALS:
    void notifyChosenChanged();
    void notifyScopeChanged();
    /// The user wants the processor of the scope to have settings of its own, or not.
    void notifyOwnToggled(bool own);

private:
    void addProcessors(const QList<QUuid> &chosen);
    void addEmpty(); ///< lists the processors that have no cabinets, behind the others

    const SPrintInput &m_input;
    QListWidget *m_processors = nullptr;
    QComboBox *m_scope = nullptr;
    QCheckBox *m_own = nullptr;
};
