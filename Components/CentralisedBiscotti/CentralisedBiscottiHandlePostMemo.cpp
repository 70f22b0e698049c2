#include "CentralisedBiscottiHandlePostMemo.h"

#include "CentralisedBiscotti.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* CentralisedBiscottiHandlePostMemo::log = LoggerManager::logger();

void CentralisedBiscottiHandlePostMemo::handle()
{
    LOG_DEBUG("Handling post %s: %s", qUtf8Printable(_messageId.toString()), qUtf8Printable(_post.toShortString()));
    if (_session.client()->verifyMessage(_messageId, _signatureId, _verified))
        _session.subscribers().notify(_post);
}
