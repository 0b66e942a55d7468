// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/PortPairs.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/api/records/SEditStep.h"
#include "layout/api/records/SHostRecords.h"
#include "layout/api/records/SPortLoad.h"
#include "layout/api/records/SSettings.h"
#include "platform/control/IAbstractInterfaceHandler.h"

#include <QList>
#include <QPair>
#include <QSize>
#include <QVector>

#include <functional>

class QWidget;

/// What the module asks of the host: its only access to devices and files. Any thread, unless an operation
/// says GUI thread. An operation that returns false has changed nothing; lastError() then returns the reason.
/// For a key that names no processor, operations return an empty value or false. The "current" processor is
/// the one in view.
class ILayoutInterfaceHandler : public IAbstractInterfaceHandler
{
public:
    /// Called once, on the GUI thread, with the outcome of an operation that ran in the background.
    using Done = std::function<void(const SDeviceOutcome &)>;

    // Controller and store.
    /// Canvas size of the current processor in pixels; empty if there is none.
    virtual QSize getCanvasSize() const = 0;
    /// Shows or hides the window that simulates the wall. GUI thread.
    virtual void showScreen(bool shown) = 0;
    /// Completes a hand-over of a layout: brings the simulated screen up to date and, with @p full,
    /// announces LayoutNotification::PortLoadsChanged for all ports of the current processor.
    virtual void applyLayoutFollowUp(bool full) = 0;
    /// The record behind a key; a default record for an unknown one.
    virtual ProcessorTree::ProcessorNode getProcessorNode(const QUuid &processor) const = 0;
    /// Stores the module's layout of one processor as its working layout, except the cabinets' places in the
    /// saved mapping, which the host owns. Cheap: unchanged data is shared. Announces
    /// LayoutNotification::PortLoadsChanged if the processor as a whole is or was overloaded.
    virtual void commitLayoutData(const LayoutData &data) = 0;
    /// Writes the processor's mapping to a "*.sprj" file, whole or not at all. GUI thread.
    virtual bool exportProcessorMapping(const QUuid &processor, const QString &file) = 0;
    /// Replaces the processor's layout with that of a file. Locked ports keep theirs unless
    /// @p overwriteLocked. Announced by LayoutNotification::LayoutReplaced. GUI thread.
    virtual bool importProcessorMapping(const QUuid &processor, const QString &file,
                                        bool overwriteLocked) = 0;
    /// Switches the status LED of all cabinets of the current processor. GUI thread.
    virtual bool setCabinetStatusLed(bool on) = 0;
    /// How many processors answered the last detection; projects do not count.
    virtual int getDetectedProcessorCount() const = 0;
    /// Returns whether the host wants applyLayoutFollowUp() right after the layout just handed over.
    virtual bool layoutFollowUpNeeded() const = 0;
    /// Returns whether the processor works as a fibre optic transceiver, so that there is nothing to edit.
    virtual bool isFiberTransceiverMode(const QUuid &processor) const = 0;

    // Notifications.
    /// The processor in view; a default record (null uuid) if there is none.
    virtual ProcessorTree::ProcessorNode currentProcessorNode() const = 0;
    /// The host's ports of the current processor, in ascending index; empty if there is none.
    virtual QVector<CabinetLayout::CabinetPort> currentProcessorPorts() const = 0;
    /// The working layout of a processor, with the cabinets' places in the saved mapping.
    virtual LayoutData layoutData(const QUuid &processor) const = 0;
    /// 1 if the processor must be prepared before it can be edited (it has no layout yet), else 0.
    virtual int preparatoryStep(const QUuid &processor) const = 0;
    /// Creates the processor's first layout, without cabinets. Announced by
    /// LayoutNotification::LayoutReplaced.
    virtual void performPreparatoryStep(const QUuid &processor) = 0;
    /// The edits that were not saved to the processor, or to the project's file. What is new is announced by
    /// LayoutNotification::UnsavedEditsChanged.
    virtual SUnsavedEdits unsavedEdits(const QUuid &processor) const = 0;
    /// Which ports of all processors but @p processor are locked. Cheap: no layout is copied.
    virtual PortLocks locksBeside(const QUuid &processor) const = 0;
    /// The processors selected in the device tree, including the members of a selected group.
    virtual QList<ProcessorTree::ProcessorNode> selectedProcessors() const = 0;

    // Processor commands.
    /// Why the last operation that returned false failed: what and where, as text for the user. GUI thread.
    virtual QString lastError() const = 0;
    /// All processors that the device tree shows, in its order.
    virtual QList<ProcessorTree::ProcessorNode> processors() const = 0;
    /// Replaces the layout of @p to with a copy of that of @p from, with new cabinet keys; see
    /// importProcessorMapping(). GUI thread.
    virtual bool copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked) = 0;
    /// Number of ports in use.
    virtual int outputPortCount(const QUuid &processor) const = 0;
    /// Largest number of ports that the processor can drive.
    virtual int maximumPortCount(const QUuid &processor) const = 0;
    /// Refused if a port that would be removed still holds cabinets. Announced by
    /// LayoutNotification::PortCountChanged.
    virtual bool setOutputPortCount(const QUuid &processor, int count) = 0;
    /// Makes @p redundancy take over when @p primary fails; refused if one of them is already in a pair.
    virtual bool setProcessorRedundancy(const QUuid &primary, const QUuid &redundancy) = 0;
    /// Ends the pair that the processor belongs to.
    virtual bool cancelProcessorRedundancy(const QUuid &processor) = 0;
    /// All pairs (primary, redundancy).
    virtual QList<QPair<QUuid, QUuid>> processorRedundancies() const = 0;
    /// The processor whose layout holds the cabinet; a default record for an unknown one.
    virtual ProcessorTree::ProcessorNode processorOfCabinet(const QUuid &cabinet) const = 0;
    /// Announced by LayoutNotification::WorkModeChanged.
    virtual bool setWorkMode(const QUuid &processor, ProcessorWorkMode mode) = 0;

    // Store.
    /// The cabinet type library.
    virtual QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const = 0;
    /// Locks or unlocks a port (-1: all ports) of the working layout, and changes nothing else of it: also if
    /// it is one that has not been announced yet.
    virtual void setPortLocked(const QUuid &processor, int port, bool locked) = 0;
    /// The same for the colour of a port.
    virtual void setPortColor(const QUuid &processor, int port, const QColor &color) = 0;

    // View and cabinet menu.
    /// Highlights @p cabinets of the current processor on the wall, instead of those of the previous call.
    /// GUI thread.
    virtual bool setCabinetHighlight(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                     CabinetHighlight highlight) = 0;
    /// Writes the configuration of a cabinet to a "*.rcvbp" file, whole or not at all. GUI thread.
    virtual bool exportCabinetConfig(const CabinetLayout::CabinetPort::Cabinet &cabinet,
                                     const QString &file) = 0;
    /// Reads the configuration of a connected cabinet, which may differ from @p cabinet, into a file. If the
    /// cabinet has the type given in @p cabinet, the type is named @p typeName, unless that is empty. The
    /// cabinet must be in the saved mapping. GUI thread.
    virtual bool readbackCabinetConfig(int port, const CabinetLayout::CabinetPort::Cabinet &cabinet,
                                       const QString &file, const QString &typeName) = 0;

    // Port list.
    /// Returns whether the current processor's state forbids port redundancy now.
    virtual bool isPortRedundancyBlocked() const = 0;
    /// Returns whether the kind of the current processor supports port redundancy at all.
    virtual bool isPortRedundancySupported() const = 0;
    /// Makes @p backup the redundancy of @p primary, both ports of the current processor. The caller removes
    /// grouping and wiring of @p backup. Announced by LayoutNotification::PortBackupChanged.
    virtual bool setPortRedundancy(int primary, int backup) = 0;
    /// Ends the pair that @p port belongs to, even if the pair is broken or the port locked. Announced by
    /// LayoutNotification::PortBackupChanged.
    virtual bool cancelPortRedundancy(int port) = 0;
    /// Writes one port to a "*.pprj" file, whole or not at all. GUI thread.
    virtual bool exportPortMapping(const QUuid &processor, int port, const QString &file) = 0;
    /// Replaces one port's cabinets with those of a file; see importProcessorMapping(). GUI thread.
    virtual bool importPortMapping(const QUuid &processor, int port, const QString &file,
                                   bool overwriteLocked) = 0;

    // Side panel.
    /// Load of a port of the current processor in percent of its capacity; above 100: overloaded.
    virtual int portLoad(const CabinetLayout::CabinetPort &port, int index) const = 0;
    /// The same for any processor, with the figures that the load follows from.
    virtual SPortLoad portLoadDetails(const QUuid &processor, const CabinetLayout::CabinetPort &port,
                                      int index) const = 0;
    /// Reads the mapping of the current or of all processors in the background, with progress and cancel. A
    /// layout that differs is announced by LayoutReplaced, the end of each processor's read by
    /// ReadbackFinished. GUI thread.
    virtual void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Done done) = 0;
    /// Saves @p data (the current processor), or the working layouts of all, to the processors. GUI thread.
    virtual void saveMapping(ReadSaveMappingRole role, const LayoutData &data, Done done) = 0;

    // Port areas of the current processor.
    /// The parts of the display that were set, at most one per port.
    virtual QList<SPortArea> portAreas() const = 0;
    /// Replaces all areas. Refused if one belongs to a port that is not in use.
    virtual bool setPortAreas(const QList<SPortArea> &areas) = 0;
    /// Pixels; 0 or less: no limit.
    virtual int lowLatencyWidthLimit() const = 0;
    /// Returns whether the processor shows stereoscopic pictures; its ports then have less capacity.
    virtual bool isThreeDEnabled() const = 0;

    // Processor redundancy dialog.
    /// Replaces all pairs among @p processors with @p pairs (primary, redundancy). See
    /// setProcessorRedundancy().
    virtual bool applyProcessorRedundancy(const QList<QUuid> &processors,
                                          const QList<QPair<QUuid, QUuid>> &pairs) = 0;
    /// Returns whether all of @p processors are online.
    virtual bool areProcessorsOnline(const QList<QUuid> &processors) const = 0;
    /// Returns whether a device operation on any of @p processors is running.
    virtual bool areProcessorsBusy(const QList<QUuid> &processors) const = 0;

    // Port redundancy dialog.
    /// Why the port cannot be in a pair, as text for the user; empty: it can.
    virtual QString portPairRefusal(const SPortKey &port) const = 0;
    /// The unbroken pairs of output ports, of all processors.
    virtual QList<SPortPair> portRedundancies() const = 0;
    /// Replaces all pairs of the ports of @p processors with @p pairs, all or none, and removes broken pairs.
    /// Announced by LayoutNotification::PortBackupChanged if the current processor is concerned, with -1 for
    /// a port of another one.
    virtual bool applyPortRedundancy(const QList<QUuid> &processors, const QList<SPortPair> &pairs) = 0;

    // Cabinet dialogs.
    /// Opens the host's type library. GUI thread.
    virtual void showTypeLibrary(QWidget *parent) = 0;
    /// Returns whether none of the ports that hold @p cabinets is a redundancy port.
    virtual bool areOnPrimaryPorts(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets) const = 0;
    /// Sends a type's parameters to cabinets of any detected processors; the cabinets must be in their saved
    /// mappings. @p gamma is 1.0 to 4.0, and is not sent if the type has a gamma table of its own. The
    /// processors are served one after the other; if one fails, those before it keep the new parameters. GUI
    /// thread.
    virtual bool sendCabinetParameters(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                       const SMD5 &type, double gamma) = 0;

    // Current gain of the current processor.
    /// One set per frame rate and gain level, imported or not.
    virtual QList<SCurrentGain> currentGains() const = 0;
    /// Imports the sets of a "*.acr" file; they replace those of the same frame rate and level. Sends
    /// nothing. GUI thread.
    virtual bool importCurrentGain(const QString &file) = 0;
    /// Deletes all sets, also on the processor.
    virtual bool clearCurrentGains() = 0;
    /// Sends what was imported to the processor, each set switched on or off as in @p gains.
    virtual bool sendCurrentGains(const QList<SCurrentGain> &gains) = 0;

    // Canvas of the current processor.
    /// All zero if there is no current processor: then no size is allowed.
    virtual SCanvasLimits canvasLimits() const = 0;
    /// What prevents the canvas size from being changed now.
    virtual CanvasBlock canvasBlock() const = 0;
    /// @p size is in pixels. Refused beyond canvasLimits(), and while canvasBlock() returns a reason.
    /// Announced by LayoutNotification::CanvasSizeChanged.
    virtual bool setCanvasSize(const QSize &size) = 0;
    virtual int frameRate() const = 0;  ///< hertz: 50, 60, 120 or 240
    virtual int colorDepth() const = 0; ///< bits: 8, 10 or 12
    /// The frame rates and colour depths that the processor's kind offers; every rate can be combined with
    /// every depth.
    virtual SSignalModes signalModes() const = 0;
    /// Refused beyond signalModes(). Announced by LayoutNotification::PortLoadsChanged.
    virtual bool setFrameRateAndColorDepth(int hertz, int bits) = 0;
    /// The picture behind a processor's canvas, with the processor's key.
    virtual SBackgroundInfo background(const QUuid &processor) const = 0;
    /// Sets the background of the processor named in @p info. Announced by
    /// LayoutNotification::BackgroundChanged.
    virtual bool setBackground(const SBackgroundInfo &info) = 0;

    // History.
    /// Notes an edit before the next event is handled, so that it survives a crash. Never waits for the disk,
    /// and cannot fail: what cannot be kept is told to the user by the host. GUI thread.
    virtual void recordEdit(const SEditRecord &record) = 0;
    /// The history that was kept of an earlier run and leads to the processor's working layout; empty if
    /// there is none. GUI thread.
    virtual SEditHistory editHistory(const QUuid &processor) const = 0;

    // Printing.
    /// The settings of plans that were kept for the processor; the usual ones if there are none.
    virtual PrintConfig printSettings(const QUuid &processor) const = 0;
    /// Lets the processor's project keep the settings, without processor and date, which modifies it if they
    /// are others than before. Returns false if it has none: then nothing is kept.
    virtual bool setPrintSettings(const QUuid &processor, const PrintConfig &settings) = 0;
    /// Writes a file, whole or not at all. Returns why it failed, as text for the user; empty: it did not.
    virtual QString writeFile(const QString &file, const QByteArray &content) = 0;

    // Summary.
    /// Area and offset of each given processor on the shared canvas, in pixels.
    virtual ProcessorBoundingRects processorBoundingRects(const QList<QUuid> &processors) const = 0;
    /// Moves processors' areas on the shared canvas, all of them or none; devices store their offsets.
    /// Refused if one of them is offline, or an offset is beyond LayoutLimits::LargestOffset. Announced by
    /// LayoutNotification::SelectedNodeChanged if several processors are selected. GUI thread; notifications
    /// are delivered meanwhile.
    virtual bool setProcessorOffsets(const ProcessorOffsets &offsets) = 0;
};
