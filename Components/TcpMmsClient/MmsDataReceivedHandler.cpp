#include "MmsDataReceivedHandler.h"

#include "TcpMmsClient.h"

MmsDataReceivedHandler::MmsDataReceivedHandler(TcpMmsClient* client, MmsData data)
    : TcpMmsMessageHandler(client), _data(std::move(data))
{
}

void MmsDataReceivedHandler::act()
{
    client().handleData(_data.locationId, _data.flags, _data.payload);
}
