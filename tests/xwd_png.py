# An xwd screenshot (X's packed BGR) as a PNG, cut to a window's rectangle;
# prints how many colours the cut holds, for telling a blank window.
#   xwd_png.py <screenshot.xwd> <out.png> <x,y[,width,height]>  (640 x 480 when no size is given)
import struct
import sys

from PIL import Image

data = open(sys.argv[1], 'rb').read()
header_size, _, _, depth, width, height = struct.unpack('>6I', data[:24])
bits_per_pixel = struct.unpack('>I', data[44:48])[0]
bytes_per_line = struct.unpack('>I', data[48:52])[0]
ncolors = struct.unpack('>I', data[76:80])[0]
start = header_size + ncolors * 12
pixels = data[start:start + bytes_per_line * height]
if bits_per_pixel == 24:
    img = Image.frombuffer('RGB', (width, height), pixels, 'raw', 'BGR', bytes_per_line, 1)
else:
    img = Image.frombuffer('RGBX', (width, height), pixels, 'raw', 'BGRX', bytes_per_line, 1)
box = [int(v) for v in sys.argv[3].split(',')] if len(sys.argv) > 3 else [0, 0]
x, y = box[0], box[1]
w, h = (box[2], box[3]) if len(box) == 4 else (640, 480)
img = img.convert('RGB').crop((x, y, x + w, y + h))
img.save(sys.argv[2])
print(len(img.getcolors(1 << 22) or []))
