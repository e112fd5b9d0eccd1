#include "LowDelayTcpServer.h"

#include <QTcpSocket>

void LowDelayTcpServer::incomingConnection(qintptr socketDescriptor)
{
    auto *socket = new QTcpSocket(this);
    if (!socket->setSocketDescriptor(socketDescriptor)) {
        delete socket;
        return;
    }
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    addPendingConnection(socket);
}
