#pragma once

#include "platform/dde/ChannelLock.h"
#include <QString>
#include <chrono>
#include <memory>

namespace dalvora {

/// Where this program is asked for what by other programs, as topics of the request channel.
///
/// For the ERP: "Dalvora|001" for company 001 of the user's usual profile, "Dalvora|001|FOLDER" where
/// QUORVANE_HOME names another folder.
QString hostTopic(const QString& profileFolder, const QString& company);
/// For a second start with the same company and profile on the same desktop.
QString startTopic(const QString& profileFolder, const QString& company);

/// Keeps a company in one window: the first program that is started with it holds a lock, and a later one
/// asks the first to come to the front and ends. The lock costs a start nothing to speak of; the channel is
/// loaded only to ask. One that does not answer - it is still starting, or hangs - delays the later one by
/// the patience granted, but never keeps it from starting: any number of programs may work on one database.
class FirstInstance {
public:
    explicit FirstInstance(QString profileFolder,
                           std::chrono::milliseconds patience = std::chrono::seconds(3));

    /// True when the company's first program has come to the front: the caller ends. Otherwise the caller
    /// goes on, as the first one if there is none. A company is asked for once, however often this is called.
    bool givesWay(const QString& company);

    /// Makes this program the company's first one when the one before it has ended. False while that lives.
    bool takePlace();

private:
    bool firstOneCame(const QString& topic);

    QString m_profileFolder;
    std::chrono::milliseconds m_patience;
    QString m_company;
    std::unique_ptr<quorvane::ChannelLock> m_lock;
};

} // namespace dalvora
