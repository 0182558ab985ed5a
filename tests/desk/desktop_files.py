"""Checks what tells a desktop about the desk. Usage: desktop_files.py CMAKE BUILD CHANGELOG

Installs the files into a folder of its own, has the desktop's own programs judge them, and checks what none of these
programs looks at: that the files agree with each other, and that a quote's file gets the desk's type."""
import configparser
import datetime
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

MIME = "{http://www.freedesktop.org/standards/shared-mime-info}"


def call(*words: object) -> str:
    """Returns what the program prints; ends the test if it fails."""
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{words[0]} failed:\n{done.stdout}{done.stderr}")
    return done.stdout + done.stderr


def size_of(picture: pathlib.Path) -> tuple[int, int]:
    return struct.unpack(">II", picture.read_bytes()[16:24])


def main() -> None:
    cmake, build, change_log = sys.argv[1:]
    with tempfile.TemporaryDirectory() as name:
        prefix = pathlib.Path(name)
        share = prefix / "share"
        call(cmake, "--install", build, "--prefix", prefix, "--component", "desktop")
        [entry_file] = (share / "applications").iterdir()
        [metainfo] = (share / "metainfo").iterdir()
        judgements = call("desktop-file-validate", entry_file)  # it ends with 0 after a mere warning
        assert judgements == "", judgements
        call("appstreamcli", "validate", "--no-net", metainfo)
        call("appstreamcli", "validate-tree", "--no-net", prefix)
        call("update-mime-database", share / "mime")

        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(entry_file, encoding="utf-8")
        entry = parser["Desktop Entry"]
        kind = entry["MimeType"].rstrip(";")
        about = xml.parse(share / "mime" / f"{kind}.xml").getroot()  # made by update-mime-database
        assert about.find(f"{MIME}icon").get("name") == entry["Icon"]
        assert f"{kind} application/json" in (share / "mime/subclasses").read_text().splitlines()
        [weight] = [line.split(":")[0] for line in (share / "mime/globs2").read_text().splitlines()
                    if line.split(":")[1:] == [kind, "*.quote.json"]]
        assert int(weight) > 50, f"*.json, which has 50, would also fit: {weight}"
        component = xml.parse(metainfo).getroot()
        assert component.findtext("launchable") == entry_file.name
        assert component.findtext("provides/mediatype") == kind
        assert component.findtext("name") == entry["Name"]
        release = component.find("releases/release")
        days = dict(re.findall(r"^## (\S+) \((\S+)\)$", pathlib.Path(change_log).read_text(), re.M))
        assert datetime.date.fromisoformat(release.get("date")), release.attrib
        assert days[release.get("version")] in ("unreleased", release.get("date")), (release.attrib, days)

        pictures = sorted((share / "icons/hicolor").glob(f"*/apps/{entry['Icon']}.png"))
        sizes = [f"{width}x{height}" for width, height in map(size_of, pictures)]
        assert sizes == [picture.parents[1].name for picture in pictures] and {"16x16", "256x256"} <= set(sizes), sizes
        assert (share / f"icons/hicolor/scalable/apps/{entry['Icon']}.svg").exists()


main()
