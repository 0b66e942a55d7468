// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/ILayoutInterfaceHandler.h"

#include <QCoreApplication>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

class CDeviceCommands;
class CDeviceJobs;
class CDeviceServices;
class CJournalKeeper;
class CMappingFiles;
class CPortPairs;
class CRedundancyPairs;
class CStatus;
class CTypeLibrary;
struct SDevice;

/// The host's implementation of the interface that the Layout module calls.
class CLayoutHandler final : public ILayoutInterfaceHandler
{
    Q_DECLARE_TR_FUNCTIONS(CLayoutHandler)

public:
    /// All must outlive the handler. Without a @p keeper no edits are kept for a crash.
    CLayoutHandler(CDeviceServices &services, CDeviceJobs &jobs, CDeviceCommands &commands,
                   const CTypeLibrary &library, CJournalKeeper *keeper = nullptr);
    ~CLayoutHandler() override;

    QSize getCanvasSize() const override;
    void showScreen(bool shown) override;
    void applyLayoutFollowUp(bool full) override;
    ProcessorTree::ProcessorNode getProcessorNode(const QUuid &processor) const override;
    void commitLayoutData(const LayoutData &data) override;
    bool exportProcessorMapping(const QUuid &processor, const QString &file) override;
    bool importProcessorMapping(const QUuid &processor, const QString &file, bool overwriteLocked) override;
    bool setCabinetStatusLed(bool on) override;
    int getDetectedProcessorCount() const override;
    bool layoutFollowUpNeeded() const override;
    bool isFiberTransceiverMode(const QUuid &processor) const override;

    ProcessorTree::ProcessorNode currentProcessorNode() const override;
    QVector<CabinetLayout::CabinetPort> currentProcessorPorts() const override;
    LayoutData layoutData(const QUuid &processor) const override;
    int preparatoryStep(const QUuid &processor) const override;
    void performPreparatoryStep(const QUuid &processor) override;
    SUnsavedEdits unsavedEdits(const QUuid &processor) const override;
    PortLocks locksBeside(const QUuid &processor) const override;
    QList<ProcessorTree::ProcessorNode> selectedProcessors() const override;

    QString lastError() const override;
    QList<ProcessorTree::ProcessorNode> processors() const override;
    bool copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked) override;
    int outputPortCount(const QUuid &processor) const override;
    int maximumPortCount(const QUuid &processor) const override;
    bool setOutputPortCount(const QUuid &processor, int count) override;
    bool setProcessorRedundancy(const QUuid &primary, const QUuid &redundancy) override;
    bool cancelProcessorRedundancy(const QUuid &processor) override;
    QList<QPair<QUuid, QUuid>> processorRedundancies() const override;
    ProcessorTree::ProcessorNode processorOfCabinet(const QUuid &cabinet) const override;
    bool setWorkMode(const QUuid &processor, ProcessorWorkMode mode) override;

    QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const override;
    void setPortLocked(const QUuid &processor, int port, bool locked) override;
    void setPortColor(const QUuid &processor, int port, const QColor &color) override;

    bool setCabinetHighlight(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                             CabinetHighlight highlight) override;
    bool exportCabinetConfig(const CabinetLayout::CabinetPort::Cabinet &cabinet,
                             const QString &file) override;
    bool readbackCabinetConfig(int port, const CabinetLayout::CabinetPort::Cabinet &cabinet,
                               const QString &file, const QString &typeName) override;

    bool isPortRedundancyBlocked() const override;
    bool isPortRedundancySupported() const override;
    bool setPortRedundancy(int primary, int backup) override;
    bool cancelPortRedundancy(int port) override;
    void recordEdit(const SEditRecord &record) override;
    SEditHistory editHistory(const QUuid &processor) const override;
    PrintConfig printSettings(const QUuid &processor) const override;
    bool setPrintSettings(const QUuid &processor, const PrintConfig &settings) override;
    QString writeFile(const QString &file, const QByteArray &content) override;
    bool exportPortMapping(const QUuid &processor, int port, const QString &file) override;
    bool importPortMapping(const QUuid &processor, int port, const QString &file,
                           bool overwriteLocked) override;

    int portLoad(const CabinetLayout::CabinetPort &port, int index) const override;
    SPortLoad portLoadDetails(const QUuid &processor, const CabinetLayout::CabinetPort &port,
                              int index) const override;
    void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Done done) override;
    void saveMapping(ReadSaveMappingRole role, const LayoutData &data, Done done) override;

    QList<SPortArea> portAreas() const override;
    bool setPortAreas(const QList<SPortArea> &areas) override;
    int lowLatencyWidthLimit() const override;
    bool isThreeDEnabled() const override;

    bool applyProcessorRedundancy(const QList<QUuid> &processors,
                                  const QList<QPair<QUuid, QUuid>> &pairs) override;
    bool areProcessorsOnline(const QList<QUuid> &processors) const override;
    bool areProcessorsBusy(const QList<QUuid> &processors) const override;

    QString portPairRefusal(const SPortKey &port) const override;
    QList<SPortPair> portRedundancies() const override;
    bool applyPortRedundancy(const QList<QUuid> &processors, const QList<SPortPair> &pairs) override;

    void showTypeLibrary(QWidget *parent) override;
    bool areOnPrimaryPorts(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets) const override;
    bool sendCabinetParameters(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets, const SMD5 &type,
                               double gamma) override;

    QList<SCurrentGain> currentGains() const override;
    bool importCurrentGain(const QString &file) override;
    bool clearCurrentGains() override;
    bool sendCurrentGains(const QList<SCurrentGain> &gains) override;

    SCanvasLimits canvasLimits() const override;
    CanvasBlock canvasBlock() const override;
    bool setCanvasSize(const QSize &size) override;
    int frameRate() const override;
    int colorDepth() const override;
    SSignalModes signalModes() const override;
    bool setFrameRateAndColorDepth(int hertz, int bits) override;
    SBackgroundInfo background(const QUuid &processor) const override;
    bool setBackground(const SBackgroundInfo &info) override;

    ProcessorBoundingRects processorBoundingRects(const QList<QUuid> &processors) const override;
    bool setProcessorOffsets(const ProcessorOffsets &offsets) override;

private:
    SDevice current() const;                     ///< a default record if there is none
    SDevice known(const QUuid &processor) const; ///< a default record for an unknown key
    QList<QUuid> concerned(ReadSaveMappingRole role) const;
    static void tellNobody(const Done &done); ///< reports to @p done that there is no processor to work with
    using Ports = QVector<CabinetLayout::CabinetPort>;
    void tellRefused(const LayoutData &data, const QVector<Ports> &shown);
    void changePorts(const QUuid &processor, int port,
                     const std::function<void(CabinetLayout::CabinetPort &)> &change);
    bool told(const CStatus &status); ///< stores the reason of a failure for lastError()

    CDeviceServices &m_services;
    CDeviceJobs &m_jobs;
    CDeviceCommands &m_commands;
    const CTypeLibrary &m_library;
    CJournalKeeper *const m_keeper;
    const std::unique_ptr<CMappingFiles> m_files;
    const std::unique_ptr<CRedundancyPairs> m_redundancy;
    const std::unique_ptr<CPortPairs> m_portPairs;
    std::atomic<bool> m_followUpNeeded{false};
    mutable std::mutex m_mutex; // guards the text
    QString m_lastError;
};
