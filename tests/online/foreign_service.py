"""The account service on python3-spyne, which nobody here has written: it prints its port and serves until it is killed."""

import base64
import logging
import urllib.parse
from wsgiref.simple_server import make_server

from spyne import Application, Array, Boolean, ComplexModel, Fault, Integer, ServiceBase, Unicode, rpc
from spyne.protocol.soap import Soap11
from spyne.server.wsgi import WsgiApplication


class Role(ComplexModel):
    title = Unicode
    variables = Unicode


class LoginReply(ComplexModel):
    authenticated = Boolean
    message = Unicode
    user_id = Unicode
    multiview_channels = Integer
    roles = Array(Role)


class Allowed(ComplexModel):
    country_id = Unicode
    channels = Array(Unicode)


class LoginWithErrorHandling(ServiceBase):
    @rpc(Unicode, _returns=LoginReply)
    def LoginWithErrorHandling(ctx, login):
        email, password = map(urllib.parse.unquote, base64.b64decode(login).decode().split(" ")[:2])
        return LoginReply(authenticated=True, message=None, user_id=f"{email}|{password}", multiview_channels=9,
                          roles=[Role(title="Chat Moderator", variables="a=1;b=2"), Role(title="Other")])


class Register(ServiceBase):
    @rpc(Unicode, Unicode, Unicode, _returns=Unicode)
    def Register(ctx, user_name, password, email_allowed):
        return f"<errors><error>{user_name}</error><error>{email_allowed}</error></errors>" if password == " ü'\"" else "?"


class GetAllowedChannels(ServiceBase):
    @rpc(Unicode, _returns=Allowed)
    def GetAllowedChannels(ctx, node_identifier):
        return Allowed(country_id=node_identifier, channels=["1", "2"])


class GetMessages(ServiceBase):
    @rpc(Unicode, _returns=Unicode)
    def GetMessages(ctx, node_identifier):
        raise Fault("Server", "Nothing for <you>")


logging.disable(logging.CRITICAL)
applications = {
    f'"urn:{service.__name__}"': WsgiApplication(
        Application([service], f"urn:{service.__name__}", in_protocol=Soap11(), out_protocol=Soap11()))
    for service in (LoginWithErrorHandling, Register, GetAllowedChannels, GetMessages)}
server = make_server("127.0.0.1", 0, lambda environ, start: applications[environ["HTTP_SOAPACTION"]](environ, start))
print(server.server_port, flush=True)
server.serve_forever()
