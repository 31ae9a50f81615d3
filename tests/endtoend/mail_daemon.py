#!/usr/bin/env python3
"""A real mail server, aiosmtpd, for the tests. Prints a line of JSON when it listens and one for each message that it took.

usage: mail_daemon.py HOST PORT [--auth NAME PASSWORD] [--refuse MAIL|RCPT|DATA] [--certificate FILE [--implicit]]
"""
import argparse
import asyncio
import base64
import json
import ssl
import sys

from aiosmtpd.smtp import SMTP, AuthResult

options = argparse.ArgumentParser()
options.add_argument("host")
options.add_argument("port", type=int)
options.add_argument("--auth", nargs=2)
options.add_argument("--refuse")
options.add_argument("--certificate")
options.add_argument("--implicit", action="store_true")
given = options.parse_args()


def tell(**what):
    print(json.dumps(what), flush=True)


class Handler:
    async def handle_MAIL(self, server, session, envelope, address, mail_options):
        if given.refuse == "MAIL":
            return "550 not from you"
        envelope.mail_from = address
        return "250 OK"

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if given.refuse == "RCPT":
            return "550 no such mailbox"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        if given.refuse == "DATA":
            return "554 not this message"
        tell(event="mail", sender=envelope.mail_from, recipients=envelope.rcpt_tos, user=getattr(session, "user", None),
             mechanism=getattr(session, "mechanism", None), tls=server.transport.get_extra_info("ssl_object") is not None,
             data=base64.b64encode(envelope.original_content).decode())
        return "250 taken"


def authenticate(server, session, envelope, mechanism, data):
    session.mechanism = mechanism
    right = given.auth and (data.login.decode(), data.password.decode()) == tuple(given.auth)
    if right:
        session.user = data.login.decode()
    return AuthResult(success=bool(right), handled=False)


async def main():
    context = None
    if given.certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(given.certificate)
    loop = asyncio.get_running_loop()

    def smtp():
        return SMTP(Handler(), hostname="mail.test", tls_context=None if given.implicit else context, require_starttls=False,
                    auth_require_tls=False, auth_required=bool(given.auth), authenticator=authenticate)

    server = await loop.create_server(smtp, given.host, given.port, ssl=context if given.implicit else None)
    tell(event="listening", port=server.sockets[0].getsockname()[1])
    await server.serve_forever()

if __name__ == "__main__":
    try:
        asyncio.run(main())
    except KeyboardInterrupt:
        sys.exit(0)
