// Texts to and from files of the user's.

export function save(text, name) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([text], { type: 'text/plain' }));
  link.download = name;
  link.click();
  URL.revokeObjectURL(link.href);
}

// Calls use(text) for each file that is chosen or dropped on the page.
export function onFile(input, use) {
  const read = async (file) => file && use(await file.text());
  input.addEventListener('change', () => {
    read(input.files[0]);
    input.value = '';
  });
  document.addEventListener('dragover', (event) => event.preventDefault());
  document.addEventListener('drop', (event) => {
    if (event.dataTransfer.files.length === 0) return;
    event.preventDefault();
    read(event.dataTransfer.files[0]);
  });
}
