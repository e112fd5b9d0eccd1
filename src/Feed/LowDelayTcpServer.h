#pragma once

#include <QTcpServer>

// A listening socket whose connections send without Nagle's delay. A feed body spans several TCP
// segments, and with Nagle on, the last one waits for the client's delayed acknowledgement: some 40 ms
// added to every answer on loopback.
class LowDelayTcpServer : public QTcpServer {
    Q_OBJECT

public:
    using QTcpServer::QTcpServer;

protected:
    void incomingConnection(qintptr socketDescriptor) override;
};
