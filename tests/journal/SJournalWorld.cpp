// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/journal/SJournalWorld.h"

#include "tests/projects/ProjectSamples.h"

void SJournalWorld::editOnceAndEnd(CRecordingEditor &editor)
{
    journals.begin(ownerOf(editor), editor.project());
    journals.note(editor.edit(QStringLiteral("Edit")));
    journals.stop();
}

SJournalOwner ownerOf(const CRecordingEditor &editor, const QString &file)
{
    SJournalOwner owner;
    owner.processor = editor.project().layout.processor;
    owner.project = true;
    owner.name = editor.project().name;
    owner.file = file;
    return owner;
}

bool offers(const QList<SStrayJournal> &strays, const CRecordingEditor &editor)
{
    return strays.size() == 1 && strays.first().journal.problem == SJournal::None &&
           strays.first().journal.state.project() == editor.project() &&
           sameHistory(strays.first().journal.state.history(), editor.history());
}

CRecordingEditor smallEditor(quint32 seed)
{
    return {ProjectSamples::ofWall(CWallBuilder::Small), seed};
}
