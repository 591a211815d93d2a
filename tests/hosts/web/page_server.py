#!/usr/bin/python3 -B
"""Serves web pages on a port of this machine, which it prints first, until it is ended. What is asked for goes to
standard error, a line each.

    page_server.py                by http
    page_server.py CERTIFICATE    by https, with that certificate and the key behind it
"""

import http.server
import ssl
import sys
import time

PAGES = {
    "/page": "<h1>arrived</h1>",
    "/asks": "<script>alert('Are you there?')</script><h1>answered</h1>",
    "/goes-on": "<script>location = '/page'</script>",
    "/small": "<style>@page { size: 300pt 400pt }</style><h1>small</h1>",
    "/coloured": "<body style='background: red'><h1>red</h1>",
    "/poor": "<link rel='stylesheet' href='/none.css'><h1>poor</h1><img src='/none.png'><script src='/none.js'></script>",
    "/stalls": "",
    "/half": "<h1>half</h1><img src='/never'>",
}


class Pages(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_GET(self):
        print(self.path, file=sys.stderr, flush=True)
        if self.path == "/never":
            time.sleep(60)
        if self.path == "/moved":
            self.send_response(302)
            self.send_header("Location", "/page")
            self.end_headers()
            return
        self.send_response(200 if self.path in PAGES else 404)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        if self.path == "/stalls":
            self.wfile.write(b"<h1>begun</h1>")
            time.sleep(60)
        self.wfile.write(PAGES.get(self.path, "<h1>none</h1>").encode())


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Pages)
if len(sys.argv) > 1:
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(sys.argv[1])
    server.socket = context.wrap_socket(server.socket, server_side=True)
print(server.server_port, flush=True)
server.serve_forever()
