// The features of the tiles carry style ids of the city's own mapping; another mapping lists others for the same types.

export class CityIds {
  /**
   * @param {Record<string, number[]>} city the style ids of the tiles by feature type
   * @param {Record<string, number[]>} mapping the style ids that the component knows
   */
  constructor(city, mapping) {
    Object.assign(this, {city, mapping});
  }

  /** The style ids in the tiles of a type. */
  inCity(type) {
    return this.city[type] ?? [];
  }

  /** The style id for a feature of the tiles; undefined where the mapping has none for the type. */
  of(type, idInCity) {
    const ids = this.mapping[type] ?? [];
    return ids[Math.max(0, this.inCity(type).indexOf(idInCity)) % ids.length];
  }

  /** For each type, the ids in the tiles whose features have one of some style ids. */
  wearing(styleIds) {
    const wanted = new Set(styleIds);
    return Object.keys(this.city).map((type) => ({type, ids: this.inCity(type).filter((id) => wanted.has(this.of(type, id)))}))
      .filter(({ids}) => ids.length > 0);
  }
}
