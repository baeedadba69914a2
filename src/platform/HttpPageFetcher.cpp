#include "platform/PageFetcher.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <memory>

namespace {

// Waiting goes through the event loop rather than a blocking read: the check runs at
// start-up on the window's own thread, and the window must keep painting meanwhile.
void waitUntilFinished(const QNetworkReply& reply) {
    while (!reply.isFinished()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

bool answeredWithPage(const QNetworkReply& reply) {
    if (reply.error() != QNetworkReply::NoError) {
        return false;
    }
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= 200 && status < 300;
}

// The version file's address is written without a scheme; plain HTTP goes to the
// fetcher's port unless the address names one.
QUrl urlFor(const QString& address, quint16 port) {
    const bool hasScheme = address.contains(QStringLiteral("://"));
    QUrl url(hasScheme ? address : QStringLiteral("http://") + address);
    if (url.scheme() == QStringLiteral("http") && url.port() == -1) {
        url.setPort(port);
    }
    return url;
}

}  // namespace

HttpPageFetcher::HttpPageFetcher(quint16 port, std::chrono::milliseconds timeout)
    : port_(port), timeout_(timeout) {}

QString HttpPageFetcher::fetch(const QString& address) {
    QNetworkAccessManager network;
    QNetworkRequest request(urlFor(address, port_));
    std::unique_ptr<QNetworkReply> reply(network.get(request));

    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, reply.get(), &QNetworkReply::abort);
    deadline.start(timeout_);

    waitUntilFinished(*reply);
    return answeredWithPage(*reply) ? QString::fromUtf8(reply->readAll()) : QString();
}
