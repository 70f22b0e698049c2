#include "TcpMessageHelper.h"

#include "TcpMmsMessageHandler.h"
#include "TcpMmsMessageHandlers.h"
#include "TcpMmsPacketizer.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

#include <algorithm>
#include <iterator>

TcpMessageHelper::TcpMessageHelper(unsigned int type, char const* name,
                                   TcpMmsMessage* (*fromStream)(LittleEndianReader&),
                                   Memo* (*create)(TcpMmsClient*, TcpMmsMessage*))
    : _type(type), _name(name)
{
    TcpMmsPacketizer::instance().addHandler(type, fromStream);
    TcpMmsMessageHandlers::instance().addMessageHandlerFactory(type, create);
}

namespace
{

template<typename Message>
TcpMessageHelper helperOf(char const* name)
{
    return {Message::messageType, name, &Message::fromStream, &TcpMmsMessageHandlerOf<Message>::create};
}

#define HELPER_OF(Message) helperOf<Message>(#Message)

/// The packetizer calls nameOf(), so that a program with a packetizer has this table.
TcpMessageHelper const helpers[] = {
    HELPER_OF(MmsLinkViewerToMacConnect),
    HELPER_OF(MmsLinkViewerToMacConnectFunnel),
    HELPER_OF(MmsLinkViewerToMacOpenFile),
    HELPER_OF(MmsLinkViewerToMacStartPlaying),
    HELPER_OF(MmsLinkViewerToMacCloseFile),
    HELPER_OF(MmsLinkViewerToMacReadBlock),
    HELPER_OF(MmsLinkViewerToMacFunnelInfo),
    HELPER_OF(MmsLinkViewerToMacPong),
    HELPER_OF(MmsLinkViewerToMacCancelReadBlock),
    HELPER_OF(MmsLinkViewerToMacStreamSwitch),
    HELPER_OF(MmsLinkMacToViewerReportConnectedEx),
    HELPER_OF(MmsLinkMacToViewerReportConnectedFunnel),
    HELPER_OF(MmsLinkMacToViewerReportDisconnectedFunnel),
    HELPER_OF(MmsLinkMacToViewerReportStartedPlaying),
    HELPER_OF(MmsLinkMacToViewerReportOpenFile),
    HELPER_OF(MmsLinkMacToViewerReportStartStriding),
    HELPER_OF(MmsLinkMacToViewerReportReadBlock),
    HELPER_OF(MmsLinkMacToViewerReportFunnelInfo),
    HELPER_OF(MmsLinkMacToViewerPing),
    HELPER_OF(MmsLinkMacToViewerReportEndOfStream),
    HELPER_OF(MmsLinkMacToViewerReportStreamChange),
    HELPER_OF(MmsLinkMacToViewerReportStreamSwitch),
};

#undef HELPER_OF

} // namespace

char const* TcpMessageHelper::nameOf(unsigned int type)
{
    auto const* const helper =
        std::ranges::find_if(helpers, [type](TcpMessageHelper const& each) { return each._type == type; });
    return helper == std::end(helpers) ? "unknown message" : helper->_name;
}
