#include "LoopbackHttpServer.h"

#include <QTcpSocket>

LoopbackHttpServer::LoopbackHttpServer() {
    server_.listen(QHostAddress::LocalHost, 0);
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            socket->setParent(&server_);
            QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] { read(socket); });
        }
    });
}

LoopbackHttpServer::LoopbackHttpServer(int status, QByteArray body) : LoopbackHttpServer() {
    status_ = status;
    body_ = std::move(body);
}

LoopbackHttpServer::LoopbackHttpServer(Silent) : LoopbackHttpServer() {
    answers_ = false;
}

quint16 LoopbackHttpServer::closedPort() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    return probe.serverPort();
}

void LoopbackHttpServer::read(QTcpSocket* socket) {
    QByteArray& request = received_[socket];
    request += socket->readAll();
    const qsizetype headerEnd = request.indexOf("\r\n\r\n");
    if (headerEnd < 0) {
        return;
    }
    const QList<QByteArray> requestLine = request.left(request.indexOf("\r\n")).split(' ');
    requestedPaths_.append(QString::fromLatin1(requestLine.value(1)));
    request.clear();
    if (answers_) {
        socket->write(response());
        socket->disconnectFromHost();
    }
}

QByteArray LoopbackHttpServer::response() const {
    return "HTTP/1.1 " + QByteArray::number(status_) + " Status\r\nContent-Type: text/plain\r\n" +
           "Content-Length: " + QByteArray::number(body_.size()) + "\r\nConnection: close\r\n\r\n" +
           body_;
}
