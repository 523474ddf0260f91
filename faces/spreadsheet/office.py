# SPDX-License-Identifier: MIT
"""LibreOffice without a screen, with a user profile of its own, for the tests of the spreadsheet faces."""
import contextlib
import pathlib
import subprocess
import tempfile
import time
import uuid

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException


def connected(pipe, process):
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
    deadline = time.monotonic() + 120
    while True:
        try:
            return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
        except NoConnectException:
            if process.poll() is not None or time.monotonic() > deadline:
                raise
            time.sleep(0.1)


@contextlib.contextmanager
def office(extension=None):
    """The desktop and the component context of an office, with an extension installed as a user does."""
    with tempfile.TemporaryDirectory() as home:
        own = [f"-env:{variable}={pathlib.Path(home, folder).as_uri()}" for variable, folder in
               (("UserInstallation", "user"), ("UNO_SHARED_PACKAGES_CACHE", "shared"))]
        if extension:  # root may only install for all users, here into a folder of its own
            subprocess.run(["unopkg", "add", "--shared", *own, extension], check=True)
        pipe = "vaprix" + uuid.uuid4().hex
        process = subprocess.Popen(["soffice", *own, "--headless", "--norestore", f"--accept=pipe,name={pipe};urp"])
        try:
            context = connected(pipe, process)
            desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
            yield desktop, context
            desktop.terminate()
            process.wait(60)
        finally:
            if process.poll() is None:
                process.kill()


def opened(desktop, url="private:factory/scalc"):
    return desktop.loadComponentFromURL(url, "_blank", 0, (
        PropertyValue("Hidden", 0, True, 0), PropertyValue("MacroExecutionMode", 0, 4, 0)))
