#include "FileLatteClientFactory.h"

#include "FileLatteClient.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* FileLatteClientFactory::log = LoggerManager::logger();

LatteClient* FileLatteClientFactory::createLatteClient(Uri const& uri)
{
    return new FileLatteClient(uri, nullptr);
}

void FileLatteClientFactory::disposeLatteClient(LatteClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<FileLatteClient*>(client)) {
        LOG_WARNING("Asked to dispose of a client of another class, %s", client->metaObject()->className());
        return;
    }
    client->blockSignals(true);
    client->deleteLater();
}
