// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/SJournalStep.h"

#include <QCoreApplication>
#include <QVector>

class CByteReader;
class CByteWriter;

/// The history of one processor in a form that takes little memory: of each step what it changed, both ways.
/// It may begin later than the editor's own history, with whose numbers it counts. Any thread, one at a time.
class CStepTrail final
{
    Q_DECLARE_TR_FUNCTIONS(CStepTrail)

public:
    using Ports = QVector<CabinetLayout::CabinetPort>;

    /// Notes what happened to the editor's history. @p ports are the ports afterwards.
    void note(const SJournalStep &step, const Ports &ports);
    void clear(); ///< as after SEditRecord::Cleared
    /// The layout is saved as it is now.
    void setSaved()
    {
        m_saved = m_index;
        m_other = false;
    }
    /// What is saved is no longer the layout of any step.
    void forgetSaved() { m_saved = -1; }
    /// Whether the layout or what belongs to it, such as the size of the canvas, was changed without a step.
    void setOther(bool any) { m_other = any; }
    bool hasOther() const { return m_other; }
    /// Drops the oldest steps until the rest takes at most that much memory.
    void limit(qint64 bytes);

    /// Counts from the oldest step that leads to @p ports, as an editor does that begins with history().
    void renumber(const Ports &ports);

    /// Whether anything was noted.
    bool isBegun() const { return m_begun; }
    bool isEmpty() const { return m_steps.isEmpty(); }
    int count() const { return m_steps.size(); }
    /// What a save would keep, in words that stand after a name: it always names something.
    QString unsavedText() const;

    /// The steps, which share their memory with this trail. @p ports are the ports now; steps that do not
    /// lead to them are left out.
    SEditHistory history(const Ports &ports) const;

    void write(CByteWriter &out) const;
    static CStepTrail read(CByteReader &in);

private:
    struct SStep
    {
        QString text;
        QVector<SPortDelta> deltas; // in the order in which they happened

        qint64 bytes() const;
    };
    struct SReach
    {
        int first = 0; // of the steps here
        int done = 0;
        int end = 0;
    };

    void add(const SJournalStep &step);
    void merge(const SJournalStep &step, const Ports &ports);
    void dropFirst(int count);
    static void condense(SStep &step, const Ports &ports);
    static SKeptStep kept(const SStep &step);
    SReach reach(const Ports &ports) const;

    QVector<SStep> m_steps;
    qint64 m_bytes = 0; // of all steps
    int m_first = 0;    // the editor's number of the first step here
    int m_gone = 0;     // how many steps before those that the editor counts were dropped
    int m_index = 0;
    int m_saved = -1;
    bool m_begun = false;
    bool m_other = false; // see setOther()
};
