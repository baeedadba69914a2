#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QTcpServer>

class QTcpSocket;

// A tiny HTTP server on 127.0.0.1 for the update check: it answers every GET with one fixed
// response, or, when silent, accepts the connection and never answers.
class LoopbackHttpServer {
public:
    struct Silent {};

    LoopbackHttpServer(int status, QByteArray body);
    explicit LoopbackHttpServer(Silent);

    quint16 port() const { return server_.serverPort(); }
    // The path of every complete request received so far.
    const QStringList& requestedPaths() const { return requestedPaths_; }

    // A port on which nothing listens: connecting to it is refused at once.
    static quint16 closedPort();

private:
    LoopbackHttpServer();
    void read(QTcpSocket* socket);
    QByteArray response() const;

    QTcpServer server_;
    bool answers_ = true;
    int status_ = 200;
    QByteArray body_;
    QHash<QTcpSocket*, QByteArray> received_;
    QStringList requestedPaths_;
};
