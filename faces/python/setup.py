# SPDX-License-Identifier: MIT
"""Has CMake build the package; everything in between stays in build/wheel and build/wheel-cmake of the tree."""
import os
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "wheel"
TARGET = "vaprix_python"


class Package(build_ext):
    def build_extension(self, ext):
        cmake = ROOT / "build" / "wheel-cmake"
        for folder in cmake / "site", self.build_lib:  # what an earlier tree left
            shutil.rmtree(folder, ignore_errors=True)
        ninja = ["-G", "Ninja"] if shutil.which("ninja") else []  # there need not be make
        subprocess.run(["cmake", *ninja, "-S", ROOT, "-B", cmake, "-DVAPRIX_BUILD_PYTHON=ON",
                        "-DVAPRIX_BUILD_TESTS=OFF", "-DVAPRIX_BUILD_EXAMPLES=OFF", "-DCMAKE_BUILD_TYPE=Release",
                        f"-DPython3_EXECUTABLE={sys.executable}"], check=True)
        subprocess.run(["cmake", "--build", cmake, "--target", TARGET, "--parallel", str(os.cpu_count())], check=True)
        shutil.copytree(cmake / "site", self.build_lib, dirs_exist_ok=True)


BUILD.mkdir(parents=True, exist_ok=True)
setup(
    version=re.search(r"project\(vaprix VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1],
    ext_modules=[Extension("vaprix._ufuncs", [], py_limited_api=True)],  # the wheel is of one platform
    cmdclass={"build_ext": Package},
    options={"bdist_wheel": {"py_limited_api": "cp39"}, "build": {"build_base": str(BUILD)},
             "egg_info": {"egg_base": str(BUILD)}})
