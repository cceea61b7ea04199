// What pictures of the map have in common: where the camera stands, and how they are stored.

export const kLargest = 200_000; // bytes of a picture

/** Places to look from. */
export const views = {
  region: {center: [71.44, 51.15], zoom: 10.6},
  city: {center: [71.4305, 51.1285], zoom: 13.2},
  streets: {center: [71.427, 51.1295], zoom: 15.6},
  walls: {center: [71.4305, 51.1262], zoom: 15.1, pitch: 58, bearing: -20, is3d: true},
};

/** A PNG as WebP of the largest quality at which it is small enough; null where there is none. */
export async function compressed(page, png) {
  for (const quality of [0.9, 0.8, 0.7, 0.5, 0.3]) {
    const url = await page.evaluate(async ([text, q]) => {
      const image = new Image();
      image.src = `data:image/png;base64,${text}`;
      await image.decode();
      const canvas = Object.assign(document.createElement('canvas'), {width: image.width, height: image.height});
      canvas.getContext('2d').drawImage(image, 0, 0);
      return canvas.toDataURL('image/webp', q);
    }, [png.toString('base64'), quality]);
    const bytes = Buffer.from(url.split(',')[1], 'base64');
    if (bytes.length <= kLargest) return bytes;
  }
  return null;
}
