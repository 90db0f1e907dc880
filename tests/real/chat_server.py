"""An XMPP server on loopback with two users, me and anna, who are in each other's lists.

It also brings mail, in the way that clients of its kind know.
"""
import socket
import subprocess

from servers import LIMIT, await_that

HOST = "localhost"
PASSWORD = "secret"
ROOMS = f"rooms.{HOST}"
# The users, as each is called in the other's list.
USERS = {"me": "Me", "anna": "AnnaBaker"}

CONFIGURATION = """
run_as_root = true
daemonize = false
pidfile = "{folder}/pid"
data_path = "{folder}/data"
certificates = "{folder}"
plugin_paths = {{ "{folder}/modules" }}
interfaces = {{ "127.0.0.1" }}
c2s_ports = {{ {port} }}
c2s_direct_tls_ports = {{}}
s2s_ports = {{}}
http_ports = {{}}
https_ports = {{}}
modules_enabled = {{ "roster", "saslauth", "disco", "offline", "presence", "message", "iq", "ping",
  "groups", "mail" }}
modules_disabled = {{ "s2s", "tls" }}
groups_file = "{folder}/groups"
c2s_require_encryption = false
allow_unencrypted_plain_auth = true
authentication = "internal_plain"
log = {{ info = "{folder}/log" }}
VirtualHost "{host}"
Component "{rooms}" "muc"
muc_room_locking = false
"""

# An element <arrived xmlns="brenwick:mail" count="2"/> to a user is so much mail for that one.
MAIL = """
local st = require "util.stanza";
local jid = require "util.jid";
local kind = "google:mail:notify";
local unread = {};

module:add_feature(kind);
module:hook("iq-set/bare/brenwick:mail:arrived", function(event)
  local user = jid.node(event.stanza.attr.to);
  unread[user] = tonumber(event.stanza.tags[1].attr.count);
  for _, session in pairs(prosody.hosts[module.host].sessions[user].sessions) do
    session.send(st.iq({ type = "set", id = "mail", to = session.full_jid })
      :tag("new-mail", { xmlns = kind }));
  end
  module:send(st.reply(event.stanza));
  return true;
end);
module:hook("iq-get/self/" .. kind .. ":query", function(event)
  local count = unread[event.origin.username] or 0;
  local now = tostring(os.time() * 1000);
  local box = st.reply(event.stanza):tag("mailbox", { xmlns = kind, ["result-time"] = now,
    ["total-matched"] = tostring(count), url = "http://localhost/" });
  for number = 1, count do
    box:tag("mail-thread-info", { tid = tostring(os.time() * 100 + number), participation = "1",
        messages = "1", date = now, url = "http://localhost/" .. number })
      :tag("senders"):tag("sender", { name = "Carla & Söhne", address = "carla@example.org",
        originator = "1", unread = "1" }):up():up()
      :tag("subject"):text("Hello"):up():tag("snippet"):text("Hello"):up():up();
  end
  module:send(box);
  return true;
end);
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class ChatServer:
    def __init__(self, desktop):
        self.desktop = desktop
        self.port = free_port()
        folder = desktop.folder / "prosody"
        (folder / "modules").mkdir(parents=True)
        (folder / "data").mkdir()
        (folder / "modules/mod_mail.lua").write_text(MAIL, encoding="utf-8")
        (folder / "groups").write_text(
            "[Friends]\n" + "".join(f"{user}@{HOST}={name}\n" for user, name in USERS.items()),
            encoding="utf-8")
        self.configuration = folder / "prosody.cfg.lua"
        self.configuration.write_text(
            CONFIGURATION.format(folder=folder, port=self.port, host=HOST, rooms=ROOMS),
            encoding="utf-8")
        for user in USERS:
            subprocess.run(["/usr/bin/prosodyctl", "--config", self.configuration, "register",
                            user, HOST, PASSWORD], env=desktop.environment, check=True,
                           capture_output=True, timeout=LIMIT)
        self.start()

    def start(self):
        self.server = self.desktop.start(["/usr/bin/prosody", "--config", self.configuration])
        await_that(self._answers, "the chat server", lambda: self.server.log.read_text())

    def die(self):
        """Without a word to anybody."""
        self.server.process.kill()
        self.desktop.stop(self.server)

    def _answers(self):
        try:
            socket.create_connection(("127.0.0.1", self.port)).close()
            return True
        except ConnectionRefusedError:
            return False
