#!/usr/bin/env python3
"""Fails when a file of the game includes one from a higher layer.

usage: check_layers.py <source dir>   (the layers are cmake/layers.txt)
"""
import os
import re
import sys

FOLDERS = ["app", "world", "sim", "game", "frontend", "editor", "render", "audio"]
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def read_layers(path):
    """The layer of every word, and the includes each word must never make
    (lines "word ! included ...")."""
    layers = {}
    never = {}
    with open(path) as f:
        number = 0
        for line in f:
            line = line.split("#", 1)[0].split()
            if not line:
                continue
            if len(line) > 2 and line[1] == "!":
                never[line[0]] = line[2:]
                continue
            for word in line:
                if word in layers:
                    sys.exit("%s: %s is named twice" % (path, word))
                layers[word] = number
            number += 1
    return layers, never


def words_of(path):
    """The words that may name a file, the most particular first."""
    return (path, os.path.splitext(path)[0], path.split("/", 1)[0])


def layer_of(layers, path):
    for word in words_of(path):
        if word in layers:
            return layers[word]
    return None


def main():
    root = sys.argv[1]
    layers, never = read_layers(os.path.join(root, "cmake", "layers.txt"))
    faults = []
    for folder in FOLDERS:
        if layer_of(layers, folder + "/x.h") is None:
            faults.append("%s/ has no layer" % folder)
        for name in sorted(os.listdir(os.path.join(root, folder))):
            if not name.endswith((".h", ".cpp")):
                continue
            path = folder + "/" + name
            own = layer_of(layers, path)
            with open(os.path.join(root, path)) as f:
                text = f.read()
            for included in INCLUDE.findall(text):
                theirs = layer_of(layers, included)
                if theirs is not None and theirs > own:
                    faults.append("%s includes %s from a higher layer" % (path, included))
                for word in words_of(path):
                    if set(words_of(included)) & set(never.get(word, [])):
                        faults.append("%s includes %s, which %s never does" % (path, included, word))
    for fault in faults:
        print(fault)
    if faults:
        print("%d includes break the layers of cmake/layers.txt" % len(faults))
        return 1
    print("every include points down the layers")
    return 0


if __name__ == "__main__":
    sys.exit(main())
