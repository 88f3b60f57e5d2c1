"""`modulinfo serve`: the dialogs and the help, driven as a person does."""

import shutil
import unittest

from bench import BIN, CATALOGUE, wait_for
from serve_bench import ServeBench
from test_serve_widgets import KEYS, PLACE, WIDGETS

RUN_TIME = -32000
WRONG_PARAMETERS = -32602

IDLE = (0xFDFDFD, 0xF2EFEB)
OPTIONS = ["DE", "GB", "FR", "ES", "IT", "PT", "TR", "RU", "CN", "PL", "JP"]
OPTION_KEYS = {"caption", "enabled", "visible", "value"} | PLACE
CAPTION_KEYS = {"caption", "enabled", "visible"} | PLACE


def dialog(name, is_open):
    return ("dialog", {"name": name, "open": is_open})


class Dialogs(ServeBench):
    def opened(self, client, button, form):
        """Presses the button that opens that form; returns the request, not answered yet."""
        opener = client.send("press", widget=button)
        client.wait_until_notified(dialog(form, True))
        self.assertEqual(client.take_notifications(), [dialog(form, True)])
        return opener

    def language_dialog(self, client):
        return self.opened(client, "cmdSettings", "frmLanguage")

    def options_set(self, client):
        return [code for code in OPTIONS
                if client.widget(f"frmLanguage.Option{code}")["value"]]

    def test_the_open_dialog_is_among_the_widgets(self):
        client = self.shown()
        self.language_dialog(client)
        states = client.request("widgets")
        self.assertEqual(set(WIDGETS), {name for name in states if "." not in name})
        self.assertEqual(set(states["frmLanguage.OptionFR"]), OPTION_KEYS)
        self.assertEqual(set(states["frmLanguage.UniFormCaptionB1"]), CAPTION_KEYS)
        self.assertEqual(set(states["frmLanguage.cmdOK"]), KEYS["button"])
        self.assertEqual([states[f"frmLanguage.Option{code}"]["caption"] for code in OPTIONS[:6]],
                         ["Deutsch", "English", "français", "español", "italiano", "português"])
        self.assertEqual(states["frmLanguage.UniFormCaptionB1"]["caption"],
                         states["cmdSettings"]["toolTipText"].removesuffix("..."))
        button = states["frmLanguage.cmdOK"]
        self.assertEqual((button["caption"], button["gradientstartcolor"],
                          button["gradientendcolor"]), ("OK", *IDLE))

    def test_a_language_is_chosen_and_kept(self):
        client = self.shown()
        opener = self.language_dialog(client)
        self.assertEqual(self.options_set(client), ["DE"])
        self.assertIsNone(client.request("select", widget="frmLanguage.OptionFR"))
        self.assertEqual(self.options_set(client), ["FR"])
        self.assertIsNone(client.press("frmLanguage.cmdOK"))
        self.assertIsNone(client.wait_for(opener))
        closed, (method, message) = client.take_notifications()
        self.assertEqual((closed, method), (dialog("frmLanguage", False), "message"))
        self.assertTrue(message["text"].endswith("\n\nPlease restart application!"))
        self.assertEqual((message["style"], message["title"]), (48, "MERIDEX_CONF"))
        self.assertEqual(client.get("Language"), 3)
        self.assertEqual(self.succeed("settings", "get", "Language"), "3\n")
        self.assertEqual(client.caption("LngLabel[3]"), "Gerätetyp:")

    def test_the_question_to_restart_is_asked_once_where_english_is_active(self):
        client = self.serve()
        self.come_up(client)
        client.set("Language", 2)
        client.request("show")
        client.take_notifications()
        opener = self.language_dialog(client)
        client.request("select", widget="frmLanguage.OptionFR")
        client.press("frmLanguage.cmdOK")
        client.wait_for(opener)
        self.assertNotIn("\n\n", client.take_notifications("message")[0][1]["text"])

    def test_cancelling_changes_nothing(self):
        client = self.shown()
        opener = self.language_dialog(client)
        client.request("select", widget="frmLanguage.OptionJP")
        client.press("frmLanguage.cmdCancel")
        client.wait_for(opener)
        self.assertEqual(client.take_notifications(), [dialog("frmLanguage", False)])
        self.assertEqual(client.get("Language"), 1)
        self.fail_with(1, "settings", "get", "Language")

    def test_open_dialogs_answer_and_closed_ones_do_not(self):
        client = self.shown()
        opener = self.language_dialog(client)
        self.assertEqual(client.get("Parity"), 2)
        self.assertIn("frmAbout", self.fails(WRONG_PARAMETERS, None, client, "press",
                                             widget="frmAbout.cmdOK"))
        self.assertIn("OptionXX", self.fails(WRONG_PARAMETERS, None, client, "select",
                                             widget="frmLanguage.OptionXX"))
        self.assertIn("no lines", self.fails(WRONG_PARAMETERS, None, client, "select",
                                             widget="frmLanguage.OptionFR", index=0))
        client.press("frmLanguage.cmdCancel")
        client.wait_for(opener)
        self.fails(WRONG_PARAMETERS, None, client, "widget", widget="frmLanguage.OptionFR")

    def test_the_panel_is_blocked_while_a_dialog_is_open(self):
        client = self.shown()
        opener = self.language_dialog(client)
        for button in ("CmdAbout", "cmdSettings", "CmdDeviceInfo"):
            self.assertIn("frmLanguage", self.fails(RUN_TIME, 5, client, "press", widget=button))
        client.press("frmLanguage.cmdOK")
        client.wait_for(opener)

    def test_requests_under_a_dialog_are_answered_in_order(self):
        client = self.shown()
        sent = [client.send("press", widget="cmdSettings"), client.send("get", name="Parity"),
                client.send("wait", ms=100), client.send("get", name="DataBits"),
                client.send("press", widget="frmLanguage.cmdCancel"),
                client.send("get", name="StopBits")]
        answers = [client.next_answer()["id"] for _ in sent]
        self.assertEqual(answers, sent[1:5] + sent[:1] + sent[5:])

    def test_a_batch_may_open_and_close_a_dialog(self):
        client = self.shown()
        client.send_json([
            {"jsonrpc": "2.0", "id": 1, "method": "press", "params": {"widget": "CmdAbout"}},
            {"jsonrpc": "2.0", "id": 2, "method": "press", "params": {"widget": "frmAbout.cmdOK"}},
            {"jsonrpc": "2.0", "id": 3, "method": "get", "params": {"name": "Parity"}}])
        received = [client.next()["params"] for _ in range(2)]
        self.assertEqual([entry["open"] for entry in received], [True, False])
        self.assertEqual([answer["id"] for answer in client.next()], [2, 1, 3])

    def test_a_module_is_read_under_a_dialog(self):
        client = self.shown("--simulate", self.module())
        opener = self.language_dialog(client)
        read = client.send("call", name="AutomaticConnection")
        asked = client.send("get", name="DataValid")
        self.assertIsNone(client.wait_for(read))
        self.assertEqual(client.wait_for(asked), 1)
        client.wait_until_notified(("event", {"name": "ModulActive", "args": [4]}))
        client.press("frmLanguage.cmdCancel")
        self.assertIsNone(client.wait_for(opener))

    def test_the_about_box(self):
        client = self.shown()
        client.set("VersionString", "7.8.9")
        opener = self.opened(client, "CmdAbout", "frmAbout")
        states = client.request("widgets")
        self.assertEqual(states["frmAbout.LabelRevision"]["caption"], "7.8.9")
        self.assertEqual(states["frmAbout.LblAppTitel"]["caption"], "MERIDEX-CONF")
        self.assertEqual(states["frmAbout.UniFormCaptionB1"]["caption"], "Information")
        self.assertEqual(set(states["frmAbout.HyperLinkWeb"]), CAPTION_KEYS)
        self.assertEqual(set(states["frmAbout.Picture2"]), KEYS["picture"])
        self.assertTrue(states["frmAbout.LblPhone"]["caption"].endswith(":"))
        self.assertGreaterEqual(states["frmAbout.LblPhoneNr"]["left"], 4600)
        client.press("frmAbout.cmdOK")
        self.assertIsNone(client.wait_for(opener))
        self.assertEqual(client.take_notifications(), [dialog("frmAbout", False)])

    def test_a_link_that_no_program_opens_does_nothing(self):
        client = self.shown()
        opener = self.opened(client, "CmdAbout", "frmAbout")
        for link in ("HyperLinkEmail", "HyperLinkWeb"):
            self.assertIsNone(client.press(f"frmAbout.{link}"))
            (method, launched), = client.take_notifications()
            self.assertEqual((method, launched["result"]), ("launch", 31))
        client.press("frmAbout.cmdOK")
        self.assertIsNone(client.wait_for(opener))

    def test_a_dialog_opens_again_and_again(self):
        client = self.shown()
        for button, form in (("cmdSettings", "frmLanguage"), ("CmdAbout", "frmAbout")) * 3:
            opener = self.opened(client, button, form)
            client.press(f"{form}.cmdOK")
            self.assertIsNone(client.wait_for(opener))
            client.take_notifications()
        self.end_in_order(client)

    def test_quitting_under_a_dialog_closes_it_and_answers_both(self):
        for button, form in (("cmdSettings", "frmLanguage"), ("CmdAbout", "frmAbout")):
            client = self.shown()
            opener = self.opened(client, button, form)
            self.assertIsNone(client.request("quit"))
            self.assertIsNone(client.wait_for(opener))
            self.assertEqual(client.take_notifications(), [dialog(form, False)])
            self.assertEqual(client.ending(), ([], 0, ""))
        self.fail_with(1, "settings", "get", "Language")

    def test_the_end_of_input_under_a_dialog_is_a_regular_end(self):
        client = self.shown()
        opener = self.language_dialog(client)
        asked = client.send("get", name="Parity")
        client.close_input()
        self.assertEqual(client.wait_for(asked), 2)
        self.assertIsNone(client.wait_for(opener))
        self.assertEqual(client.take_notifications(), [dialog("frmLanguage", False)])
        self.assertEqual(client.ending(), ([], 0, ""))


class Help(ServeBench):
    def opening_result(self, client):
        """Presses the help button; returns the result of the launch and the text of the message."""
        self.assertIsNone(client.press("CmdHelp"))
        (_, launched), (_, message) = client.take_notifications()
        return launched["result"], message["text"]

    def test_a_replaced_program_finds_its_help_and_catalogue_where_they_are(self):
        place = self.private_installation()
        shutil.copy2(BIN / CATALOGUE, place)
        client = self.shown("--simulate", self.module())
        program = place / "modulinfo"
        shutil.copy2(program, place / "modulinfo.new")
        (place / "modulinfo.new").rename(program)
        self.assertEqual(self.opening_result(client), (2, "File Not Found!"))
        client.call("AutomaticConnection")
        self.assertEqual(client.get("DataValid"), 1)
        self.assertNotEqual(client.get("ProductLink"), "")
        client.take_notifications()
        self.assertEqual(self.opening_result(client), (2, "File Not Found!"))

    def test_a_program_whose_folder_was_removed_misses_the_folder(self):
        place = self.private_installation()
        client = self.shown("--simulate", self.module())
        shutil.rmtree(place)
        self.assertEqual(self.opening_result(client), (3, "Path Not Found!"))
        # Without a catalogue a module is read as far as it describes itself.
        client.call("AutomaticConnection")
        self.assertEqual(client.get("SerialNumber"), 4711)
        self.end_in_order(client)

    def test_a_help_file_that_is_not_there_is_reported(self):
        self.private_installation()
        client = self.shown()
        self.assertIsNone(client.press("CmdHelp"))
        (method, launched), message = client.take_notifications()
        self.assertEqual((method, launched["result"]), ("launch", 2))
        self.assertIn("Help_049.chm", launched["file"])
        self.assertEqual(message, ("message", {"text": "File Not Found!", "style": 16,
                                               "title": "Error Help File"}))

    def test_the_help_file_is_opened_with_its_program(self):
        place = self.private_installation()
        (place / "Help_049.chm").write_bytes(b"ITSF")
        viewer, seen, closed = (self.folder / name for name in ("viewer", "seen", "closed"))
        # A viewer that stays open must not keep the client waiting for the end of the output.
        viewer.write_text(
            f'#!/bin/sh\necho "$1" > {seen}.new\nmv {seen}.new {seen}\n'
            f"while [ -e {viewer} ] && [ ! -e {closed} ]; do sleep 0.1; done\n",
            encoding="utf-8")
        viewer.chmod(0o755)
        programs = self.folder / "share" / "applications"
        programs.mkdir(parents=True)
        (programs / "viewer.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Viewer\nExec={viewer} %f\n"
            "MimeType=application/vnd.ms-htmlhelp;\n", encoding="utf-8")
        (programs / "mimeapps.list").write_text(
            "[Default Applications]\napplication/vnd.ms-htmlhelp=viewer.desktop\n",
            encoding="utf-8")
        (programs / "mimeinfo.cache").write_text(
            "[MIME Cache]\napplication/vnd.ms-htmlhelp=viewer.desktop;\n", encoding="utf-8")
        self.environment["XDG_DATA_HOME"] = str(self.folder / "share")
        client = self.shown()
        client.press("CmdHelp")
        (method, launched), = client.take_notifications()
        self.assertEqual(method, "launch")
        self.assertGreater(launched["result"], 32, launched)
        wait_for(seen.exists, "the viewer")
        self.end_in_order(client)
        closed.touch()
        self.assertEqual(seen.read_text(encoding="utf-8").strip(),
                         str(place / "Help_049.chm"))


if __name__ == "__main__":
    unittest.main()
