"""The version check and what the desktop is asked to open."""
from rules_life import Rule

HTTP = 80


class Request(Rule):
    """One connection a check, and one request, to a server that answers."""

    def look(self, step):
        connects, sends = step.all("connect"), step.all("send")
        if connects and not (step.starts() or step.clicks("cmdUpdate") or
                             step.raises("OnLocalStateChangeResult")):
            yield "a connection"
        if len(connects) > 1 or len(sends) > len(connects):
            yield f"{len(connects)} connections and {len(sends)} requests"
        for connect in connects:
            if connect["connect"]["port"] != HTTP or not connect["connect"]["host"]:
                yield f"connected with {connect['connect']}"
        for send in sends:
            if not isinstance(self.world["web"], dict):
                yield "a request to a server that is not there"
            elif send["send"] != request_to(connects[0]["connect"]["host"]):
                yield f"the request is {send['send']!r}"


def request_to(host):
    return (f"GET /download/version.txt HTTP/1.1\r\nHost: {host}\r\n"
            "Connection: close\r\nAccept: */*\r\n\r\n")


class Opening(Rule):
    """The web site on its button, the address of a newer client when the user says Yes."""

    def look(self, step):
        opened = [effect["open"] for effect in step.all("open")]
        if opened and step.raises("OnNewerClientAvailable"):
            if opened != [step.step.get("address", "")] or not step.says_yes():
                yield f"{opened} was opened"
        elif opened and not step.clicks("cmdWebSite"):
            yield f"{opened} was opened"
        if step.alive and step.clicks("cmdWebSite") and len(opened) != 1:
            yield "the web site was not opened"


class Caption(Rule):
    """The counter of a check gives its button back."""

    def look(self, step):
        if step.alive and step.verb == "show" and step.target == "cmdUpdate":
            if step.effects[0]["caption"].isdigit():
                yield f"the button still counts: {step.effects[0]['caption']}"


WEB = [Request, Opening, Caption]
